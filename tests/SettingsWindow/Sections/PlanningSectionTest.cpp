#include "SettingsWindow/Sections/PlanningSection.h"

#include "Components/RowList.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "PageTest.h"
#include "SettingsWindow/Sections/PlanningPathRow.h"

#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QUrl>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace
{

const auto rootFooter =
    u"Pick the folder that holds your planning work — the agent reads projects.toml under this root and "
    "matches each project to notch sessions by path."_s;

class PlanningSectionTest : public PageTest
{
protected:
    QString root() const { return homePath(u"plan"_s); }
    QString manifest() const { return root() + u"/projects.toml"_s; }

    /// The symbols of the tiles shown, from top to bottom.
    QStringList tiles() const
    {
        QStringList symbols;
        for (const SidebarIcon *icon : page->findChildren<SidebarIcon *>()) {
            if (icon->isVisible())
                symbols << icon->symbol();
        }
        return symbols;
    }
};

TEST_F(PlanningSectionTest, WithoutARootThereIsOnlyTheInvitationToChooseOne)
{
    show<PlanningSection>();
    EXPECT_EQ(texts(), QStringList({u"PLANNING PROJECT"_s, u"Not set"_s,
                                    u"Click Choose… to point at a folder on disk."_s, rootFooter}));
    EXPECT_EQ(button(u"Reveal in Finder"_s), nullptr);
    EXPECT_EQ(button(u"Clear planning root"_s), nullptr);
    EXPECT_NE(button(u"Choose planning root…"_s), nullptr);
    EXPECT_EQ(group(u"Projects"_s), nullptr);
}

TEST_F(PlanningSectionTest, ARootShowsItsPathItsFolderAndItsControls)
{
    choosePlanningRoot(root());
    show<PlanningSection>();
    EXPECT_TRUE(shows(root()));
    EXPECT_TRUE(shows(u"Selected folder: plan"_s));
    EXPECT_EQ(button(u"Clear planning root"_s)->text(), u"Clear");
    EXPECT_EQ(button(u"Choose planning root…"_s)->text(), u"Choose…");
    EXPECT_EQ(button(u"Reveal in Finder"_s)->toolTip(), u"Reveal in Finder");
}

TEST_F(PlanningSectionTest, WithoutAManifestTheGroupOffersToCreateIt)
{
    choosePlanningRoot(root());
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"PROJECTS"_s));
    EXPECT_TRUE(shows(u"projects.toml not found"_s));
    EXPECT_TRUE(shows(u"Create "_s + manifest() +
                      u" with [[projects]] blocks listing each project’s name, path, and todo_path."_s));
    EXPECT_TRUE(shows(u"Expected projects.toml at "_s + manifest() + u'.'));
    EXPECT_EQ(button(u"Refresh"_s), nullptr);
    EXPECT_EQ(tiles(), QStringList({u"folder.fill"_s, u"doc.badge.ellipsis"_s}));
}

TEST_F(PlanningSectionTest, AManifestWithoutProjectsSaysSoUnderTheQuestionMarkFolder)
{
    putManifest("# none\n");
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"No projects parsed"_s));
    EXPECT_TRUE(shows(u"The file exists but no [[projects]] entries were found."_s));
    EXPECT_TRUE(shows(u"Reads "_s + manifest() + u". Session counts come from ~/.vantle/sessions.json."_s));
    EXPECT_EQ(button(u"Refresh"_s), nullptr);
    EXPECT_EQ(tiles(), QStringList({u"folder.fill"_s, u"questionmark.folder"_s}));
}

TEST_F(PlanningSectionTest, ADirectoryNamedLikeTheManifestCountsAsExisting)
{
    choosePlanningRoot(root());
    QDir().mkpath(manifest());
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"No projects parsed"_s));
}

TEST_F(PlanningSectionTest, AStoredEmptyRootShowsTheGroupWithoutAFooter)
{
    choosePlanningRoot({});
    show<PlanningSection>();
    EXPECT_EQ(
        texts(),
        QStringList({u"PLANNING PROJECT"_s, u"Not set"_s, u"Click Choose… to point at a folder on disk."_s,
                     rootFooter, u"PROJECTS"_s, u"projects.toml not found"_s,
                     u"Create projects.toml with [[projects]] blocks listing each project’s name, path, "
                     "and todo_path."_s}));
    EXPECT_EQ(button(u"Clear planning root"_s), nullptr);
}

TEST_F(PlanningSectionTest, TheFileSystemsRootIsNamedByItsSlash)
{
    choosePlanningRoot(u"/"_s);
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"Selected folder: /"_s));
}

TEST_F(PlanningSectionTest, OneProjectWithOneSessionIsSummedUpInTheSingular)
{
    putManifest("[[projects]]\nname = \"A\"\npath = \"/w/a\"\n");
    putHomeFile(u".vantle/sessions.json"_s, R"([{"cwd":"/w/a/src"}])");
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"1 project · 1 matched session"_s));
}

TEST_F(PlanningSectionTest, TwoProjectsWithoutSessionsAreSummedUpInThePlural)
{
    putManifest("[[projects]]\nname = \"A\"\n[[projects]]\nname = \"B\"\n");
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"2 projects · 0 matched sessions"_s));
}

TEST_F(PlanningSectionTest, TheSessionTotalIsTheSumOfTheCountsAlsoWhereProjectsOverlap)
{
    putManifest("[[projects]]\npath = \"/w\"\n[[projects]]\npath = \"/w/a\"\n");
    putHomeFile(u".vantle/sessions.json"_s, R"([{"cwd":"/w/a"},{"cwd":"/w/b"}])");
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"2 projects · 3 matched sessions"_s));
}

TEST_F(PlanningSectionTest, RefreshReadsTheManifestAgainAndTellsNobody)
{
    putManifest("[[projects]]\nname = \"A\"\n");
    show<PlanningSection>();
    putManifest("[[projects]]\nname = \"B\"\n[[projects]]\nname = \"C\"\n");
    click(u"Refresh"_s);
    EXPECT_FALSE(shows(u"A"_s));
    EXPECT_TRUE(shows(u"B"_s));
    EXPECT_TRUE(shows(u"2 projects · 0 matched sessions"_s));
    EXPECT_TRUE(posts.paths().isEmpty());
}

TEST_F(PlanningSectionTest, ProjectsStandInManifestOrder)
{
    putManifest(
        "[[projects]]\nname = \"Zeta\"\n[[projects]]\nname = \"Alpha\"\n[[projects]]\nname = \"Zeta\"\n");
    show<PlanningSection>();
    EXPECT_EQ(texts().filter(QRegularExpression(u"^(Zeta|Alpha)$"_s)),
              QStringList({u"Zeta"_s, u"Alpha"_s, u"Zeta"_s}));
}

TEST_F(PlanningSectionTest, ChoosingAsksForAFolderStartingAtTheRoot)
{
    choosePlanningRoot(root());
    show<PlanningSection>();
    click(u"Choose planning root…"_s);
    ASSERT_EQ(dialogs.directoryQuestions.size(), 1U);
    const DirectoryQuestion &asked = dialogs.directoryQuestions.front();
    EXPECT_EQ(asked.title, u"Planning Project Folder");
    EXPECT_EQ(asked.message, u"Select the folder that holds your planning work.");
    EXPECT_EQ(asked.prompt, u"Choose");
    EXPECT_EQ(asked.start, root());
}

TEST_F(PlanningSectionTest, WithoutARootOrWithAnEmptyOneTheDesktopChoosesWhereToStart)
{
    show<PlanningSection>();
    click(u"Choose planning root…"_s);
    EXPECT_EQ(dialogs.directoryQuestions.back().start, std::nullopt);
    model->planningRoot = QString();
    processEvents();
    click(u"Choose planning root…"_s);
    EXPECT_EQ(dialogs.directoryQuestions.back().start, std::nullopt);
}

TEST_F(PlanningSectionTest, AChosenFolderBecomesTheRoot)
{
    putManifest("[[projects]]\nname = \"A\"\n");
    putHomeFile(u".vantle/planning.json"_s, "{}");
    show<PlanningSection>();
    dialogs.folder = root();
    click(u"Choose planning root…"_s);
    EXPECT_TRUE(shows(root()));
    EXPECT_TRUE(shows(u"A"_s));
    EXPECT_EQ(posts.paths(), QStringList{u"/settings/reload-planning"_s});
    EXPECT_TRUE(homeFile(u".vantle/planning.json"_s)->contains("plan"));
}

TEST_F(PlanningSectionTest, CancelLeavesRootFileAndListUntouched)
{
    putManifest("[[projects]]\nname = \"A\"\n");
    show<PlanningSection>();
    const QStringList before = texts();
    const auto file = homeFile(u".vantle/planning.json"_s);
    click(u"Choose planning root…"_s);
    EXPECT_EQ(texts(), before);
    EXPECT_EQ(homeFile(u".vantle/planning.json"_s), file);
    EXPECT_TRUE(posts.paths().isEmpty());
}

TEST_F(PlanningSectionTest, AFolderChosenAfterThePageIsClosedIsIgnored)
{
    show<PlanningSection>();
    dialogs.folder = root();
    dialogs.meanwhile = [this] { closePage(); };
    button(u"Choose planning root…"_s)->click();
    EXPECT_FALSE(homeFile(u".vantle/planning.json"_s));
}

class PlanningDropTest : public PlanningSectionTest
{
protected:
    PlanningDropTest()
    {
        QDir().mkpath(root());
        show<PlanningSection>();
        row = page->findChild<PlanningPathRow *>();
        EXPECT_TRUE(row->acceptDrops());
    }

    static std::unique_ptr<QMimeData> urls(const QList<QUrl> &dragged)
    {
        auto data = std::make_unique<QMimeData>();
        data->setUrls(dragged);
        return data;
    }
    static QUrl url(const QString &path) { return QUrl::fromLocalFile(path); }

    /// Drags over the row and drops on it. Returns the action that the row reports; nothing when it refuses.
    std::optional<Qt::DropAction>
    drop(const QMimeData &data, Qt::DropActions possible = Qt::CopyAction | Qt::LinkAction | Qt::MoveAction)
    {
        QDragEnterEvent enter(QPoint(5, 5), possible, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(row, &enter);
        if (!enter.isAccepted())
            return std::nullopt;
        QDropEvent dropped(QPoint(5, 5), possible, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(row, &dropped);
        processEvents();
        return dropped.isAccepted() ? std::optional(dropped.dropAction()) : std::nullopt;
    }

    QImage picture() const { return row->grab().toImage(); }

    PlanningPathRow *row = nullptr;
};

TEST_F(PlanningDropTest, AFolderDroppedOnTheRowBecomesTheRoot)
{
    EXPECT_EQ(drop(*urls({url(root())})), Qt::LinkAction);
    EXPECT_TRUE(shows(root()));
    EXPECT_TRUE(homeFile(u".vantle/planning.json"_s)->contains("plan"));
    EXPECT_EQ(posts.paths(), QStringList{u"/settings/reload-planning"_s});
}

TEST_F(PlanningDropTest, ADroppedFoldersPathIsSpelledLikeAChosenOnes)
{
    const QString folder = root() + u"/ä b#1"_s;
    QDir().mkpath(folder);
    drop(*urls({url(folder + u'/')}));
    EXPECT_TRUE(shows(folder));
}

TEST_F(PlanningDropTest, TheFolderIsNeverMoved)
{
    EXPECT_EQ(drop(*urls({url(root())}), Qt::CopyAction | Qt::MoveAction), Qt::CopyAction);
    model->setPlanningRoot(std::nullopt);
    processEvents();
    EXPECT_EQ(drop(*urls({url(root())}), Qt::MoveAction), Qt::IgnoreAction) << "yet it becomes the root";
    EXPECT_TRUE(shows(root()));
}

TEST_F(PlanningDropTest, AnythingButOneFolderIsRefused)
{
    putHomeFile(u"plan/projects.toml"_s, "");
    const auto text = std::make_unique<QMimeData>();
    text->setText(root());
    EXPECT_EQ(drop(*text), std::nullopt);
    EXPECT_EQ(drop(*urls({url(manifest())})), std::nullopt) << "a file";
    EXPECT_EQ(drop(*urls({url(root() + u"/gone"_s)})), std::nullopt) << "nothing";
    EXPECT_EQ(drop(*urls({url(root()), url(manifest())})), std::nullopt) << "several things";
    EXPECT_EQ(drop(*urls({QUrl(u"sftp://host"_s + root())})), std::nullopt) << "elsewhere";
    EXPECT_EQ(drop(*urls({QUrl(u"file://"_s + root() + u"%00"_s)})), std::nullopt) << "no path";
    EXPECT_FALSE(homeFile(u".vantle/planning.json"_s));
    EXPECT_TRUE(posts.paths().isEmpty());
}

TEST_F(PlanningDropTest, TheRowShowsThatAFolderCanBeDropped)
{
    const QImage before = picture();
    const auto folder = urls({url(root())});
    QDragEnterEvent enter(QPoint(5, 5), Qt::LinkAction, folder.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(row, &enter);
    EXPECT_NE(picture(), before);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(row, &leave);
    EXPECT_EQ(picture(), before);

    const auto nothing = urls({url(root() + u"/gone"_s)});
    QDragEnterEvent other(QPoint(5, 5), Qt::LinkAction, nothing.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(row, &other);
    EXPECT_EQ(picture(), before);
}

TEST_F(PlanningSectionTest, ClearRemovesTheRoot)
{
    choosePlanningRoot(root());
    show<PlanningSection>();
    click(u"Clear planning root"_s);
    EXPECT_TRUE(shows(u"Not set"_s));
    EXPECT_EQ(group(u"Projects"_s), nullptr);
    EXPECT_FALSE(homeFile(u".vantle/planning.json"_s));
    EXPECT_EQ(posts.paths(), QStringList{u"/settings/reload-planning"_s});
}

TEST_F(PlanningSectionTest, RevealSelectsTheRootAsItIsStored)
{
    choosePlanningRoot(u"~/plan"_s);
    show<PlanningSection>();
    click(u"Reveal in Finder"_s);
    EXPECT_EQ(workspace.revealed, QStringList{u"~/plan"_s});
}

TEST_F(PlanningSectionTest, TheShortcutChoosesOnlyWhileThePageIsShown)
{
    show<PlanningSection>();
    press(Qt::CTRL | Qt::Key_O);
    EXPECT_EQ(dialogs.directoryQuestions.size(), 1U);
    page->hide();
    press(Qt::CTRL | Qt::Key_O);
    EXPECT_EQ(dialogs.directoryQuestions.size(), 1U);
}

TEST_F(PlanningSectionTest, DemoModeShowsTheSampleAndKeepsIt)
{
    putHomeFile(u".vantle/demo-mode.json"_s, R"({"enabled":true})");
    show<PlanningSection>();
    EXPECT_TRUE(shows(u"/Users/demo/workspace/planning"_s));
    EXPECT_TRUE(shows(u"3 projects · 4 matched sessions"_s));
    EXPECT_FALSE(shows(u"missing"_s));
    click(u"Clear planning root"_s);
    dialogs.folder = root();
    click(u"Choose planning root…"_s);
    EXPECT_TRUE(shows(u"/Users/demo/workspace/planning"_s));
    EXPECT_TRUE(posts.paths().isEmpty());
}

TEST_F(PlanningSectionTest, OfTenThousandProjectsOnlyThoseInViewHaveRows)
{
    QByteArray toml;
    for (int number = 0; number < 10000; ++number)
        toml += "[[projects]]\nname = \"P" + QByteArray::number(number) + "\"\n";
    putManifest(toml);
    show<PlanningSection>();
    const auto *list = page->findChild<RowList *>();
    EXPECT_TRUE(shows(u"10000 projects · 0 matched sessions"_s));
    EXPECT_GT(list->createdCount(), 0);
    EXPECT_LT(list->createdCount(), 20);
    window->ensureWidgetVisible(button(u"Refresh"_s));
    processEvents();
    EXPECT_TRUE(shows(u"P9999"_s));
    EXPECT_FALSE(shows(u"P0"_s));
}

} // namespace
