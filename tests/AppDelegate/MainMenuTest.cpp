#include "AppDelegate/MainMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// The items of a menu as people read them: title and key, a line for a separator.
QStringList described(const QMenu &menu)
{
    QStringList items;
    for (const QAction *item : menu.actions()) {
        const QString key = item->shortcut().toString(QKeySequence::PortableText);
        items << (item->isSeparator() ? u"---"_s
                  : key.isEmpty()     ? item->text()
                                      : item->text() + u" | "_s + key);
    }
    return items;
}

class MainMenu : public testing::Test
{
protected:
    MainMenu()
    {
        auto *content = new QWidget;
        auto *layout = new QVBoxLayout(content);
        layout->addWidget(editor);
        layout->addWidget(button);
        window.setCentralWidget(content);
        buildMainMenu(window);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QGuiApplication::clipboard()->clear();
    }

    QMenu &menu(int index) { return *window.menuBar()->actions().at(index)->menu(); }

    QAction &item(const QString &title)
    {
        for (const QAction *top : window.menuBar()->actions()) {
            for (QAction *action : top->menu()->actions()) {
                if (action->text() == title)
                    return *action;
            }
        }
        ADD_FAILURE() << "no item " << title.toStdString();
        return *new QAction(&window);
    }

    /// The titles of the Edit menu's enabled items.
    QStringList enabled()
    {
        QStringList titles;
        for (const QAction *action : menu(1).actions()) {
            if (!action->isSeparator() && action->isEnabled())
                titles << action->text();
        }
        return titles;
    }

    QMainWindow window;
    QPlainTextEdit *editor = new QPlainTextEdit;
    QPushButton *button = new QPushButton(u"Save"_s);
};

TEST_F(MainMenu, HasThreeMenus)
{
    QStringList titles;
    for (const QAction *top : window.menuBar()->actions())
        titles << top->text();
    EXPECT_EQ(titles, (QStringList{u"Vantle Settings"_s, u"Edit"_s, u"Window"_s}));
}

TEST_F(MainMenu, TheApplicationMenuHasItsItemsAndKeys)
{
    EXPECT_EQ(described(menu(0)),
              (QStringList{u"About Vantle Settings"_s, u"---"_s, u"Hide Vantle Settings | Ctrl+H"_s,
                           u"Hide Others | Ctrl+Alt+H"_s, u"Show All"_s, u"---"_s,
                           u"Quit Vantle Settings | Ctrl+Q"_s}));
}

TEST_F(MainMenu, TheEditMenuHasItsItemsAndKeys)
{
    EXPECT_EQ(described(menu(1)),
              (QStringList{u"Undo | Ctrl+Z"_s, u"Redo | Ctrl+Shift+Z"_s, u"---"_s, u"Cut | Ctrl+X"_s,
                           u"Copy | Ctrl+C"_s, u"Paste | Ctrl+V"_s, u"Select All | Ctrl+A"_s}));
}

TEST_F(MainMenu, TheWindowMenuHasItsItemsAndKeys)
{
    EXPECT_EQ(described(menu(2)), (QStringList{u"Minimize | Ctrl+M"_s, u"Close | Ctrl+W"_s}));
}

TEST_F(MainMenu, ItemsThatTheDesktopDoesNotSupportAreDisabled)
{
    for (const QString &title : {u"Hide Vantle Settings"_s, u"Hide Others"_s, u"Show All"_s})
        EXPECT_FALSE(item(title).isEnabled()) << title.toStdString();
    for (const QString &title :
         {u"About Vantle Settings"_s, u"Quit Vantle Settings"_s, u"Minimize"_s, u"Close"_s})
        EXPECT_TRUE(item(title).isEnabled()) << title.toStdString();
}

TEST_F(MainMenu, IsAtTheTopOfTheWindow)
{
    EXPECT_FALSE(window.menuBar()->isNativeMenuBar());
    EXPECT_EQ(window.menuBar()->geometry().topLeft(), QPoint(0, 0));
}

TEST_F(MainMenu, CloseClosesTheWindow)
{
    item(u"Close"_s).trigger();
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainMenu, MinimizeMinimisesTheWindow)
{
    item(u"Minimize"_s).trigger();
    EXPECT_TRUE(window.isMinimized());
}

TEST_F(MainMenu, NothingCanBeEditedWhileNoEditorHasTheFocus)
{
    button->setFocus();
    EXPECT_EQ(enabled(), QStringList());
}

TEST_F(MainMenu, AnEmptyEditorCanDoNothing)
{
    editor->setFocus();
    EXPECT_EQ(enabled(), QStringList());
}

TEST_F(MainMenu, TheItemsFollowWhatTheEditorCanDo)
{
    editor->setFocus();
    QTest::keyClicks(editor, u"https"_s);
    EXPECT_EQ(enabled(), (QStringList{u"Undo"_s, u"Select All"_s}));
    item(u"Select All"_s).trigger();
    EXPECT_EQ(enabled(), (QStringList{u"Undo"_s, u"Cut"_s, u"Copy"_s, u"Select All"_s}));
    item(u"Cut"_s).trigger();
    EXPECT_EQ(editor->toPlainText(), QString());
    EXPECT_EQ(enabled(), (QStringList{u"Undo"_s, u"Paste"_s}));
    item(u"Paste"_s).trigger();
    EXPECT_EQ(editor->toPlainText(), u"https"_s);
    item(u"Undo"_s).trigger();
    EXPECT_EQ(editor->toPlainText(), QString());
    EXPECT_TRUE(enabled().contains(u"Redo"_s));
    item(u"Redo"_s).trigger();
    EXPECT_EQ(editor->toPlainText(), u"https"_s);
}

TEST_F(MainMenu, CopyLeavesTheText)
{
    editor->setPlainText(u"example.com"_s);
    editor->setFocus();
    item(u"Select All"_s).trigger();
    item(u"Copy"_s).trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"example.com"_s);
    EXPECT_EQ(editor->toPlainText(), u"example.com"_s);
}

TEST_F(MainMenu, AReadOnlyEditorCanOnlyBeCopiedFrom)
{
    button->setFocus();
    QGuiApplication::clipboard()->setText(u"text"_s);
    editor->setPlainText(u"example.com"_s);
    editor->setReadOnly(true);
    editor->setFocus();
    editor->selectAll();
    EXPECT_EQ(enabled(), (QStringList{u"Copy"_s, u"Select All"_s}));
}

TEST_F(MainMenu, TheItemsActOnTheEditorThatHadTheFocusBeforeTheMenuBar)
{
    editor->setFocus();
    QTest::keyClicks(editor, u"a"_s);
    window.menuBar()->setFocus();
    EXPECT_TRUE(enabled().contains(u"Select All"_s));
    item(u"Select All"_s).trigger();
    EXPECT_TRUE(editor->textCursor().hasSelection());
}

TEST_F(MainMenu, TheItemsForgetAnEditorThatLostTheFocusOrIsGone)
{
    editor->setFocus();
    QTest::keyClicks(editor, u"a"_s);
    button->setFocus();
    EXPECT_EQ(enabled(), QStringList());
    editor->setFocus();
    EXPECT_NE(enabled(), QStringList());
    delete editor;
    EXPECT_EQ(enabled(), QStringList());
}

} // namespace
