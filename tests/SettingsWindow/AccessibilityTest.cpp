#include "AccessibleTree.h"
#include "Components/SidebarIcon.h"
#include "FakeFonts.h"
#include "Finding.h"
#include "HomeFiles.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"
#include "SettingsWindow/SettingsWindowController.h"
#include "SettingsWindow/Sidebar.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QStackedWidget>
#include <QTest>

#include <gmock/gmock.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// A page in one of its states.
struct State {
    const char *name;
    SettingsSection section;
    void (*prepare)(OutsideWorld &, FakeFonts &);
};

void PrintTo(const State &state, std::ostream *stream)
{
    *stream << state.name;
}

void nothing(OutsideWorld &, FakeFonts &)
{
}

void demo(OutsideWorld &world, FakeFonts &)
{
    world.put(u".vantle/demo-mode.json"_s, R"({"enabled":true})");
}

void sessions(OutsideWorld &world, FakeFonts &)
{
    world.put(u".vantle/sessions.json"_s,
              R"([{"id":"1","cwd":"/work/alpha"},{"id":"2","cwd":"/work/beta/src"}])");
    world.put(u".claude/browser-patterns.json"_s, R"({"/work/alpha":["https://alpha.example/*","*alpha*"]})");
}

void projects(OutsideWorld &world, FakeFonts &)
{
    const QString root = testHome() + u"/plan"_s;
    world.put(u".vantle/planning.json"_s, u"{\"root\":\"%1\"}"_s.arg(root).toUtf8());
    world.put(u"plan/projects.toml"_s, "[[projects]]\nname = \"Alpha\"\npath = \"/work/alpha\"\n");
    world.put(u".vantle/sessions.json"_s, R"([{"id":"1","cwd":"/work/alpha/src"}])");
}

void switched(OutsideWorld &world, FakeFonts &fonts)
{
    world.serviceIsLoaded = true;
    world.put(u".vantle/green-screen.json"_s, R"({"enabled":true})");
    world.put(u".vantle/updates.json"_s, R"({"automatic":false})");
    world.put(u".vantle/terminal-backend.json"_s, R"({"backend":"vantle-term"})");
    fonts.installed = false;
}

const State states[] = {
    {"general", SettingsSection::general, nothing},
    {"general-switched", SettingsSection::general, switched},
    {"planning-without-root", SettingsSection::planning, nothing},
    {"planning", SettingsSection::planning, projects},
    {"planning-demo", SettingsSection::planning, demo},
    {"browser-empty", SettingsSection::browser, nothing},
    {"browser", SettingsSection::browser, sessions},
    {"browser-demo", SettingsSection::browser, demo},
    {"data", SettingsSection::data, nothing},
    {"data-filled", SettingsSection::data, sessions},
    {"about", SettingsSection::about, nothing},
};

class Accessibility : public testing::TestWithParam<State>
{
protected:
    void SetUp() override
    {
        GetParam().prepare(world, fonts);
        model = std::make_unique<SettingsModel>();
        controller = std::make_unique<SettingsWindowController>(GetParam().section, *model);
        window().resize(860, 2000); // all of the page at once
        controller->showWindow();
        window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
        settle();
    }

    SettingsNSWindow &window() { return controller->window(); }
    QWidget &page() { return *window().findChild<QStackedWidget *>()->currentWidget(); }
    Sidebar &sidebar() { return *window().findChild<Sidebar *>(); }

    /// The controls that the Tab key reaches, from the sidebar round to it again.
    QList<QWidget *> tour(Qt::Key key)
    {
        QList<QWidget *> visited;
        sidebar().setFocus();
        do {
            visited << QApplication::focusWidget();
            QTest::keyClick(QApplication::focusWidget(), key);
            settle();
        } while (QApplication::focusWidget() != &sidebar() && visited.size() < 200);
        return visited;
    }

    OutsideWorld world;
    FakeFonts fonts;
    std::unique_ptr<SettingsModel> model;
    std::unique_ptr<SettingsWindowController> controller;
};

/// Without what differs from one run to the next.
QString steady(QString text)
{
    return text.replace(testHome(), u"/home/user"_s)
        .replace(QCoreApplication::applicationFilePath(), u"/opt/vantle/bin/vantle-settings"_s);
}

TEST_P(Accessibility, TheTreeIsAsStored)
{
    const QString tree = steady(outline(QAccessible::queryAccessibleInterface(&window())));
    QFile stored(QStringLiteral(VANTLE_OUTLINES "/%1.txt").arg(QLatin1String(GetParam().name)));
    if (qEnvironmentVariableIsSet("VANTLE_STORE_OUTLINES")) {
        ASSERT_TRUE(stored.open(QIODevice::WriteOnly));
        stored.write(tree.toUtf8());
        FAIL() << "stored anew; look at the difference, then run without VANTLE_STORE_OUTLINES";
    }
    ASSERT_TRUE(stored.open(QIODevice::ReadOnly)) << stored.fileName().toStdString();
    const QStringList before = QString::fromUtf8(stored.readAll()).split(u'\n');
    const QStringList now = tree.split(u'\n');
    if (now == before)
        return;
    const auto [here, there] = std::mismatch(now.begin(), now.end(), before.begin(), before.end());
    ADD_FAILURE() << stored.fileName().toStdString() << " differs from line " << here - now.begin() + 1
                  << " on:\n  stored: " << qPrintable(there == before.end() ? u"(its end)"_s : *there)
                  << "\n  now:    " << qPrintable(here == now.end() ? u"(its end)"_s : *here)
                  << "\nWhen that is meant: VANTLE_STORE_OUTLINES=1 build/asan/bin/settings_window_test "
                     "--gtest_filter='*TheTreeIsAsStored*', and look at git diff tests/outlines";
}

TEST_P(Accessibility, EveryTileShowsASymbol)
{
    for (const auto *tile : window().findChildren<SidebarIcon *>())
        EXPECT_FALSE(drawnSymbolMask(tile->symbol(), 13, 1).isNull())
            << "Resources/Symbols has no " << tile->symbol().toStdString();
}

TEST_P(Accessibility, EveryControlHasARoleAndAName)
{
    int controls = 0;
    walk(QAccessible::queryAccessibleInterface(&window()), [&](QAccessibleInterface *object, int) {
        if (!object->state().focusable || object->role() == QAccessible::Window)
            return;
        ++controls;
        EXPECT_THAT(object->role(),
                    testing::AnyOf(QAccessible::CheckBox, QAccessible::ComboBox, QAccessible::Button,
                                   QAccessible::EditableText, QAccessible::List, QAccessible::ListItem,
                                   QAccessible::ButtonMenu, QAccessible::Link))
            << object->text(QAccessible::Name).toStdString();
        EXPECT_FALSE(object->text(QAccessible::Name).isEmpty()) << "a control without a name";
    });
    EXPECT_GT(controls, 1);
}

TEST_P(Accessibility, TabVisitsEveryControlOfThePageInReadingOrderThenTheSidebar)
{
    QList<QWidget *> visited = tour(Qt::Key_Tab);
    ASSERT_EQ(visited.takeFirst(), &sidebar());
    for (QWidget *control : page().findChildren<QWidget *>()) {
        const bool isReachable = control->isVisible() && control->isEnabled();
        if (control->focusPolicy() & Qt::TabFocus && isReachable) {
            EXPECT_TRUE(visited.contains(control)) << control->accessibleName().toStdString();
        }
    }
    const auto place = [this](const QWidget *control) {
        return control->mapTo(&page(), control->rect().center());
    };
    for (qsizetype i = 1; i < visited.size(); ++i) {
        const QPoint before = place(visited[i - 1]);
        const QPoint here = place(visited[i]);
        const bool sameLine = std::abs(here.y() - before.y()) < 12;
        EXPECT_TRUE(sameLine ? here.x() > before.x() : here.y() > before.y())
            << visited[i]->accessibleName().toStdString() << " after "
            << visited[i - 1]->accessibleName().toStdString();
    }
}

TEST_P(Accessibility, ShiftTabGoesTheSameWayBack)
{
    QList<QWidget *> there = tour(Qt::Key_Tab);
    QList<QWidget *> back = tour(Qt::Key_Backtab);
    ASSERT_EQ(there.takeFirst(), back.takeFirst());
    std::reverse(back.begin(), back.end());
    EXPECT_EQ(there, back);
}

INSTANTIATE_TEST_SUITE_P(Pages, Accessibility, testing::ValuesIn(states), [](const auto &state) {
    std::string name = state.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(SidebarFocus, NoEntryIsFocusedWhileTheSidebarIsNot)
{
    OutsideWorld world;
    FakeFonts fonts;
    SettingsModel model;
    SettingsWindowController controller(SettingsSection::general, model);
    controller.showWindow();
    controller.window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&controller.window()));
    Sidebar &sidebar = *controller.window().findChild<Sidebar *>();
    const auto entryState = [&sidebar] {
        return QAccessible::queryAccessibleInterface(&sidebar)->child(0)->state();
    };
    sidebar.setFocus();
    EXPECT_TRUE(entryState().focused);
    QTest::keyClick(&sidebar, Qt::Key_Tab);
    EXPECT_FALSE(sidebar.hasFocus());
    EXPECT_FALSE(entryState().focused);
    EXPECT_TRUE(entryState().selected);
}

} // namespace
