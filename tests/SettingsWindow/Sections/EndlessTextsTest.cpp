#include "Components/MenuButton.h"
#include "Components/RowList.h"
#include "Components/Text/PatternsEditor.h"
#include "PageTest.h"
#include "SettingsWindow/Sections/BrowserPatternsSection.h"
#include "SettingsWindow/Sections/PlanningSection.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <array>
#include <string>

using namespace Qt::StringLiterals;

namespace
{

constexpr int many = 200000;

/// Very long texts on real pages. Laid out whole, each would keep the window busy for minutes.
class EndlessTextsTest : public PageTest, public testing::WithParamInterface<QString>
{
protected:
    const QString text = GetParam();
};

TEST_P(EndlessTextsTest, AsAPlanningRoot)
{
    const QString root = u'/' + text;
    putHomeFile(u".vantle/planning.json"_s, QJsonDocument(QJsonObject{{u"root"_s, root}}).toJson());
    show<PlanningSection>();
    window->grab();
    EXPECT_TRUE(shows(root));
    EXPECT_LE(page->minimumSizeHint().width(), 600);
    click(u"Reveal in Finder"_s);
    EXPECT_EQ(workspace.revealed, QStringList{root});
    click(u"Clear planning root"_s);
    EXPECT_FALSE(homeFile(u".vantle/planning.json"_s));
    dialogs.folder = root;
    press(Qt::CTRL | Qt::Key_O);
    EXPECT_EQ(model->planningRoot.value(), root);
    window->grab();
}

TEST_P(EndlessTextsTest, AsAProjectsNamePathAndTodo)
{
    QString value = text; // the manifest has a line per value
    value.remove(u'\n');
    const QByteArray line = value.toUtf8();
    putManifest("[[projects]]\nname = '" + line + "'\npath = '/" + line + "'\ntodo_path = '/" + line + "'\n");
    putHomeFile(
        u".vantle/sessions.json"_s,
        QJsonDocument(QJsonArray{QJsonObject{{u"cwd"_s, QString(u'/' + value + u"/src"_s)}}}).toJson());
    show<PlanningSection>();
    window->grab();
    ASSERT_EQ(model->planningProjects->size(), 1U);
    EXPECT_EQ(model->planningProjects->front().sessionCount, 1);
    EXPECT_TRUE(shows(value));
    button(u"Actions for "_s + value)->click();
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(pasteboard.texts, QStringList{u'/' + value});
}

TEST_P(EndlessTextsTest, AsAFolderWithPatternsThatAreEditedAndSaved)
{
    const QString root = u'/' + text;
    QJsonArray patterns;
    for (const QString &pattern : text.split(u'\n', Qt::SkipEmptyParts))
        patterns.append(pattern);
    putHomeFile(u".claude/browser-patterns.json"_s, QJsonDocument(QJsonObject{{root, patterns}}).toJson());
    putHomeFile(u".vantle/sessions.json"_s,
                QJsonDocument(QJsonArray{QJsonObject{{u"cwd"_s, QString(root + u"/src"_s)}}}).toJson());
    show<BrowserPatternsSection>();
    window->grab();
    ASSERT_EQ(model->projects->size(), 2U);
    EXPECT_TRUE(shows(root));
    const auto editors = page->findChildren<PatternsEditor *>();
    const auto found = std::find_if(editors.begin(), editors.end(), [&](const PatternsEditor *each) {
        return each->accessibleName() == u"URL patterns for "_s + root;
    });
    ASSERT_NE(found, editors.end());
    PatternsEditor *editor = *found;
    const QString before = editor->text();
    editor->setFocus();
    QTest::keyClicks(editor, u"x"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    press(Qt::CTRL | Qt::Key_S);
    const auto saved = QJsonDocument::fromJson(*homeFile(u".claude/browser-patterns.json"_s)).object();
    QStringList lines;
    for (const auto &pattern : saved.begin()->toArray())
        lines << pattern.toString();
    EXPECT_EQ(lines, QStringList(u"x"_s) + before.split(u'\n', Qt::SkipEmptyParts));
    window->grab();
}

/// Fifty projects, so few that all their rows would exist if their texts were short.
class ManyLongTextsTest : public PageTest
{
protected:
    static constexpr int count = 50;
    static constexpr int length = 2000;

    static QString path(int number) { return u'/' + QString::number(100 + number) + u"w"_s.repeated(length); }

    /// How many rows there are at the moment.
    qsizetype rowCount() const { return page->findChild<RowList *>()->createdCount(); }
};

TEST_F(ManyLongTextsTest, PlanningCreatesOnlyTheRowsInView)
{
    QByteArray toml;
    for (int number = 0; number < count; ++number)
        toml += "[[projects]]\npath = '" + path(number).toUtf8() + "'\n";
    putManifest(toml);
    show<PlanningSection>();
    EXPECT_TRUE(shows(path(0)));
    EXPECT_LT(rowCount(), 20);
    window->ensureWidgetVisible(button(u"Refresh"_s));
    processEvents();
    EXPECT_TRUE(shows(path(count - 1)));
    EXPECT_LT(rowCount(), 20);
}

TEST_F(ManyLongTextsTest, BrowserPatternsCreatesOnlyTheRowsInViewAndSavesAll)
{
    QJsonObject patterns;
    for (int number = 0; number < count; ++number)
        patterns[path(number)] = QJsonArray{path(number)};
    putHomeFile(u".claude/browser-patterns.json"_s, QJsonDocument(patterns).toJson());
    show<BrowserPatternsSection>();
    EXPECT_TRUE(shows(path(0)));
    EXPECT_LT(rowCount(), 10);
    window->ensureWidgetVisible(button(u"Save Patterns"_s));
    processEvents();
    EXPECT_TRUE(shows(path(count - 1)));
    EXPECT_LT(rowCount(), 10);
    press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(QJsonDocument::fromJson(*homeFile(u".claude/browser-patterns.json"_s)).object(), patterns);
}

std::string nameOf(const testing::TestParamInfo<QString> &test)
{
    const std::array names{"OneWord", "ManyFolders", "OneLetter", "LettersWithMarks", "ManyLines"};
    return names[test.index];
}

INSTANTIATE_TEST_SUITE_P(Texts, EndlessTextsTest,
                         testing::Values(u"w"_s.repeated(many), u"folder/"_s.repeated(many / 7) + u"end"_s,
                                         u'e' + u"\u0301"_s.repeated(many),
                                         u"e\u0323\u0301"_s.repeated(many / 3), u"a\n"_s.repeated(many / 10)),
                         nameOf);

} // namespace
