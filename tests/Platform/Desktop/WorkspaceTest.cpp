#include "Platform/Desktop/Workspace.h"

#include "PrivateBus.h"

#include <QDesktopServices>
#include <QDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// Stands for the desktop's file manager on the bus.
class FileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    FileManager()
    {
        PrivateBus::services().registerObject(u"/org/freedesktop/FileManager1"_s, this,
                                              QDBusConnection::ExportAllSlots);
    }

    QStringList shown;

    Q_SLOT void ShowItems(const QStringList &items, const QString &) { shown += items; }

private:
    ServiceName m_name{u"org.freedesktop.FileManager1"_s};
};

/// Takes what would be opened by the desktop's default applications.
class WorkspaceTest : public QObject, public testing::Test
{
    Q_OBJECT

public:
    WorkspaceTest() { QDesktopServices::setUrlHandler(u"file"_s, this, "open"); }
    ~WorkspaceTest() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

    Q_SLOT void open(const QUrl &url) { opened << url.toLocalFile(); }

protected:
    QStringList opened;
};

TEST_F(WorkspaceTest, RevealingSelectsTheItemInTheFileManager)
{
    const FileManager manager;
    Workspace::system().reveal(u"/plan/a b#c%20?é"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }));
    EXPECT_EQ(manager.shown, QStringList{u"file:///plan/a%20b%23c%2520%3F%C3%A9"_s});
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(WorkspaceTest, WithoutAFileManagerOnTheBusTheFolderAroundTheItemIsOpened)
{
    Workspace::system().reveal(u"/plan/app"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(opened, QStringList{u"/plan"_s});
}

TEST_F(WorkspaceTest, RevealingReturnsBeforeTheFileManagerAnswers)
{
    const FileManager manager;
    Workspace::system().reveal(u"/plan/app"_s);
    EXPECT_TRUE(manager.shown.isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }));
}

TEST_F(WorkspaceTest, OpensAFileWithItsDefaultApplication)
{
    Workspace::system().open(u"/plan/TODO.toml"_s);
    EXPECT_EQ(opened, QStringList{u"/plan/TODO.toml"_s});
}

TEST_F(WorkspaceTest, APathThatLooksLikeAResourceIsAFile)
{
    Workspace::system().open(u":/x"_s);
    EXPECT_EQ(opened, QStringList{QDir::currentPath() + u"/:/x"_s});
}

TEST_F(WorkspaceTest, APathThatBeginsWithTwoSlashesNamesNoOtherComputer)
{
    Workspace::system().open(u"//plan//TODO.toml"_s);
    EXPECT_EQ(opened, QStringList{u"/plan/TODO.toml"_s});
    const FileManager manager;
    Workspace::system().reveal(u"//plan/app"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }));
    EXPECT_EQ(manager.shown, QStringList{u"file:///plan/app"_s});
}

TEST_F(WorkspaceTest, ARelativePathInTheRootNamesNoOtherComputer)
{
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(u"/"_s));
    Workspace::system().open(u"plan/TODO.toml"_s);
    QDir::setCurrent(before);
    EXPECT_EQ(opened, QStringList{u"/plan/TODO.toml"_s});
}

TEST_F(WorkspaceTest, ASlashAtTheEndOfAFolderDoesNotCount)
{
    Workspace::system().reveal(u"/plan/app/"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(opened, QStringList{u"/plan"_s});
}

TEST_F(WorkspaceTest, NothingIsDoneForAnEmptyPath)
{
    Workspace::system().open({});
    Workspace::system().reveal({});
    Workspace::system().reveal(u"/plan/app"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.isEmpty(); }));
    EXPECT_EQ(opened, QStringList{u"/plan"_s}) << "of the last one";
}

TEST_F(WorkspaceTest, NothingIsDoneForAPathLongerThanAnyFiles)
{
    const QString path = u"/plan"_s + u"/x"_s.repeated(500000);
    const FileManager manager;
    Workspace::system().open(path);
    Workspace::system().reveal(path);
    Workspace::system().reveal(u"/plan/app"_s + u"/"_s.repeated(1000000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.shown.isEmpty(); }));
    EXPECT_EQ(manager.shown, QStringList{u"file:///plan/app"_s}) << "of the last one";
    EXPECT_TRUE(opened.isEmpty());
}

} // namespace

#include "WorkspaceTest.moc"
