#include "SettingsWindow/Sections/PlanningProjectRow.h"

#include "Components/Drawing/Tokens.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "PageTest.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace
{

class PlanningProjectRowTest : public PageTest
{
protected:
    PlanningProjectRowTest()
    {
        QDir().mkpath(folder);
        putHomeFile(u"code/app/TODO.toml"_s, "");
    }

    PlanningProjectRow &showRow(const PlanningProject &project)
    {
        row = std::make_unique<PlanningProjectRow>(project);
        row->resize(500, 57);
        row->show();
        return *row;
    }

    /// Opens the action menu with its button, calls `act` and closes the menu.
    void withMenu(const std::function<void(QMenu *)> &act) const
    {
        row->findChild<QPushButton *>()->click();
        const QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        act(menu);
        if (menu)
            menu->close();
    }

    QStringList items() const
    {
        QStringList texts;
        withMenu([&](const QMenu *menu) {
            for (const QAction *action : menu->actions())
                texts << action->text();
        });
        return texts;
    }

    static void pick(QMenu *menu, const QString &item)
    {
        for (QAction *action : menu->actions()) {
            if (action->text() == item) {
                menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
        }
        FAIL() << "no item " << qPrintable(item);
    }

    void choose(const QString &item) const
    {
        withMenu([&](QMenu *menu) { pick(menu, item); });
    }

    const Label *missing() const
    {
        for (const Label *label : row->findChildren<Label *>()) {
            if (label->text() == u"missing")
                return label;
        }
        return nullptr;
    }

    bool saysMissing() const { return missing() && missing()->isVisible(); }

    const SidebarIcon *icon() const { return row->findChild<SidebarIcon *>(); }

    QString folder = homePath(u"code/app"_s);
    QString todo = homePath(u"code/app/TODO.toml"_s);
    std::unique_ptr<PlanningProjectRow> row;
};

TEST_F(PlanningProjectRowTest, AProjectWhoseFolderIsThereHasAllItems)
{
    showRow({.name = u"App"_s, .path = folder, .todoPath = todo});
    EXPECT_EQ(icon()->symbol(), u"folder.fill");
    EXPECT_EQ(icon()->tint(), SystemColor::green);
    EXPECT_FALSE(saysMissing());
    EXPECT_EQ(items(), QStringList({u"Reveal Project in Finder"_s, u"Open TODO.toml"_s,
                                    u"Reveal TODO in Finder"_s, u"Copy Path"_s}));
}

TEST_F(PlanningProjectRowTest, AProjectWhoseFolderIsGoneIsGreyMissingAndCanStillBeCopied)
{
    showRow({.name = u"App"_s, .path = homePath(u"gone"_s)});
    EXPECT_EQ(icon()->symbol(), u"folder.badge.questionmark");
    EXPECT_EQ(icon()->tint(), SystemColor::gray);
    EXPECT_TRUE(saysMissing());
    EXPECT_EQ(items(), QStringList{u"Copy Path"_s});
}

TEST_F(PlanningProjectRowTest, TheWordMissingHasRoomAroundIt)
{
    showRow({.name = u"App"_s, .path = homePath(u"gone"_s)});
    const Label word(u"missing"_s, TextStyle::size10);
    EXPECT_EQ(missing()->size(), word.sizeHint() + QSize(2 * 6, 2 * 2));
}

TEST_F(PlanningProjectRowTest, AProjectMustBeADirectory)
{
    showRow({.name = u"App"_s, .path = todo});
    EXPECT_TRUE(saysMissing());
}

TEST_F(PlanningProjectRowTest, ATodoNeedNotBeAPlainFile)
{
    showRow({.name = u"App"_s, .path = homePath(u"gone"_s), .todoPath = folder});
    EXPECT_EQ(items(), QStringList({u"Open TODO.toml"_s, u"Reveal TODO in Finder"_s, u"Copy Path"_s}));
}

TEST_F(PlanningProjectRowTest, ATodoThatIsNotThereHasNoItems)
{
    showRow({.name = u"App"_s, .path = folder, .todoPath = homePath(u"gone/TODO.toml"_s)});
    EXPECT_EQ(items(), QStringList({u"Reveal Project in Finder"_s, u"Copy Path"_s}));
}

TEST_F(PlanningProjectRowTest, TheOverrideDecidesIconLabelAndMenuAlike)
{
    showRow({.name = u"App"_s, .path = homePath(u"gone"_s), .existsOverride = true});
    EXPECT_EQ(icon()->symbol(), u"folder.fill");
    EXPECT_FALSE(saysMissing());
    EXPECT_EQ(items(), QStringList({u"Reveal Project in Finder"_s, u"Copy Path"_s}));

    showRow({.name = u"App"_s, .path = folder, .existsOverride = false});
    EXPECT_EQ(icon()->symbol(), u"folder.badge.questionmark");
    EXPECT_TRUE(saysMissing());
    EXPECT_EQ(items(), QStringList{u"Copy Path"_s});
}

TEST_F(PlanningProjectRowTest, EachItemActsOnThePathsAsTheManifestSpellsThem)
{
    showRow({.name = u"App"_s, .path = folder + u"/./"_s, .todoPath = todo});
    choose(u"Reveal Project in Finder"_s);
    choose(u"Open TODO.toml"_s);
    choose(u"Reveal TODO in Finder"_s);
    choose(u"Copy Path"_s);
    EXPECT_EQ(workspace.revealed, QStringList({folder + u"/./"_s, todo}));
    EXPECT_EQ(workspace.opened, QStringList{todo});
    EXPECT_EQ(pasteboard.texts, QStringList{folder + u"/./"_s});
}

TEST_F(PlanningProjectRowTest, ACopiedPathKeepsItsTilde)
{
    showRow({.name = u"App"_s, .path = u"~/code/app"_s});
    choose(u"Copy Path"_s);
    EXPECT_EQ(pasteboard.texts, QStringList{u"~/code/app"_s});
}

TEST_F(PlanningProjectRowTest, TheMenuChecksThePathsAgainWhenItOpens)
{
    showRow({.name = u"App"_s, .path = folder, .todoPath = todo});
    ASSERT_TRUE(QDir(folder).removeRecursively());
    EXPECT_EQ(items(), QStringList{u"Copy Path"_s});
    EXPECT_TRUE(saysMissing());
}

TEST_F(PlanningProjectRowTest, AFileThatVanishesWhileTheMenuIsOpenIsLeftToTheDesktop)
{
    showRow({.name = u"App"_s, .path = folder, .todoPath = todo});
    withMenu([this](QMenu *menu) {
        ASSERT_TRUE(QDir(folder).removeRecursively());
        pick(menu, u"Open TODO.toml"_s);
    });
    EXPECT_EQ(workspace.opened, QStringList{todo});
}

TEST_F(PlanningProjectRowTest, TheRowMayBeDeletedWhileItsMenuIsOpen)
{
    showRow({.name = u"App"_s, .path = folder});
    withMenu([this](QMenu *) { row.reset(); });
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(PlanningProjectRowTest, IsExposedAsAPanelNamedLikeTheProject)
{
    showRow({.name = u"App"_s, .path = homePath(u"gone"_s)});
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(row.get());
    EXPECT_EQ(accessible->role(), QAccessible::Grouping);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"App");
    EXPECT_EQ(accessible->text(QAccessible::Description), homePath(u"gone"_s) + u", missing"_s);
    auto *actions = row->findChild<QPushButton *>();
    QAccessibleInterface *button = QAccessible::queryAccessibleInterface(actions);
    EXPECT_EQ(button->text(QAccessible::Name), u"Actions for App");
    EXPECT_EQ(button->role(), QAccessible::Button);
    EXPECT_EQ(button->text(QAccessible::Description),
              homePath(u"gone"_s) + u", missing, No notch sessions"_s);
    ASSERT_EQ(button->childCount(), 1);
    EXPECT_EQ(button->child(0)->role(), QAccessible::PopupMenu);

    showRow({.name = u"App"_s, .path = folder});
    EXPECT_EQ(QAccessible::queryAccessibleInterface(row.get())->text(QAccessible::Description), folder);
}

} // namespace
