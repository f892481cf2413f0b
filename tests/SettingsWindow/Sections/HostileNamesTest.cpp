#include "Components/Text/Label.h"
#include "Components/Text/PatternsEditor.h"
#include "PageTest.h"
#include "SettingsWindow/Sections/BrowserPatternsSection.h"
#include "SettingsWindow/Sections/PlanningSection.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

/// Names that could be taken for markup or could break the layout.
class HostileNamesTest : public PageTest, public testing::WithParamInterface<QString>
{
protected:
    /// Expects every control and text inside the page and a page that the names don't widen.
    void expectIntactLayout() const
    {
        EXPECT_LE(page->minimumSizeHint().width(), 600);
        for (const QWidget *each : page->findChildren<QWidget *>()) {
            if (!each->isVisible() || each->window() != window->window())
                continue;
            const QRect place(each->mapTo(page, QPoint()), each->size());
            EXPECT_GE(place.left(), 0) << each->metaObject()->className();
            EXPECT_LE(place.right(), page->width()) << each->metaObject()->className();
        }
    }
};

TEST_P(HostileNamesTest, ArePlainTextOnThePlanningPage)
{
    const QString name = GetParam();
    QString oneLine = name; // the manifest has a line per value
    oneLine.remove(u'\n');
    putManifest("[[projects]]\nname = '" + oneLine.toUtf8() + "'\npath = '/" + oneLine.toUtf8() + "'\n");
    show<PlanningSection>();
    ASSERT_EQ(model->planningProjects->size(), 1U);
    const PlanningProject &project = model->planningProjects->front();
    EXPECT_TRUE(shows(project.name));
    EXPECT_TRUE(shows(project.path));
    EXPECT_NE(button(u"Actions for "_s + project.name), nullptr);
    EXPECT_NE(button(u"Refresh"_s), nullptr);
    expectIntactLayout();
}

TEST_P(HostileNamesTest, ArePlainTextAsAPlanningRoot)
{
    const QString root = u'/' + GetParam();
    show<PlanningSection>();
    dialogs.folder = root;
    click(u"Choose planning root…"_s);
    EXPECT_TRUE(shows(root));
    EXPECT_TRUE(shows(u"Expected projects.toml at "_s + root + u"/projects.toml."_s));
    EXPECT_NE(button(u"Clear planning root"_s), nullptr);
    expectIntactLayout();
}

TEST_P(HostileNamesTest, ArePlainTextOnTheBrowserPage)
{
    const QString root = u'/' + GetParam();
    QString pattern = GetParam();
    pattern.remove(u'\n');
    putHomeFile(u".claude/browser-patterns.json"_s,
                QJsonDocument(QJsonObject{{root, QJsonArray{pattern}}}).toJson());
    show<BrowserPatternsSection>();
    EXPECT_TRUE(shows(root));
    const auto *editor = page->findChild<PatternsEditor *>();
    EXPECT_EQ(editor->text(), pattern);
    EXPECT_EQ(editor->accessibleName(), u"URL patterns for "_s + root);
    EXPECT_LE(editor->height(), 96);
    expectIntactLayout();
}

INSTANTIATE_TEST_SUITE_P(Names, HostileNamesTest,
                         testing::Values(u"a very long name "_s.repeated(600), u"w"_s.repeated(10000),
                                         u"<b>bold</b>"_s, u"&amp; <img src=\"x\">"_s, u"&File && more"_s,
                                         u"مشروع التخطيط"_s, u"a\u202Eb\u202Dc\u2066"_s,
                                         u"👩‍👩‍👧‍👦🏳️‍🌈"_s, u"two\nlines"_s,
                                         u"a\tb\u2028c"_s, u"%1 %n %s"_s,
                                         u"e\u0301\u0301\u0301"_s.repeated(300)));

} // namespace
