#include "Components/Text/Label.h"

#include "LookTest.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QToolTip>

#include <gmock/gmock.h>

#include <numeric>

using namespace Qt::StringLiterals;

namespace
{

using testing::ElementsAre;

class LabelTest : public LookTest
{
protected:
    /// Sends the tooltip event of a pointer at rest on the widget. True when the widget shows a tooltip.
    static bool pointAt(QWidget &widget)
    {
        const QPoint place = widget.rect().center();
        QHelpEvent pointed(QEvent::ToolTip, place, widget.mapToGlobal(place));
        QCoreApplication::sendEvent(&widget, &pointed);
        return pointed.isAccepted();
    }
};

const QString longPath = u"/home/demo/workspace/"_s + u"folder/"_s.repeated(40) + u"the-end.json"_s;

TEST_F(LabelTest, ATooLongLineIsElidedInTheMiddleWithBothEndsVisible)
{
    ElidedLabel label(longPath, TextStyle::size11);
    show(label, {200, 20});
    ASSERT_EQ(label.shownLines().size(), 1U);
    const QString line = label.shownLines().front();
    EXPECT_TRUE(line.startsWith(u"/home/"_s)) << line.toStdString();
    EXPECT_TRUE(line.endsWith(u".json"_s)) << line.toStdString();
    EXPECT_LE(QFontMetricsF(label.font()).horizontalAdvance(line), 200);
    EXPECT_TRUE(label.isElided());
}

TEST_F(LabelTest, ALineThatFitsStaysWhole)
{
    ElidedLabel label(u"/home/demo…/x"_s, TextStyle::size11);
    show(label, {200, 20});
    EXPECT_THAT(label.shownLines(), ElementsAre(u"/home/demo…/x"_s));
    EXPECT_FALSE(label.isElided());
}

TEST_F(LabelTest, ALongTextTakesTwoLinesAndTheSecondIsElidedInTheMiddle)
{
    const QString text =
        u"One sentence of a text that is far too long for two lines. "_s.repeated(20) + u"The end."_s;
    ElidedLabel label(text, TextStyle::size11, TextColor::secondary, 2);
    show(label, {300, 40});
    const std::vector<QString> lines = label.shownLines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_TRUE(lines[0].startsWith(u"One sentence"_s));
    EXPECT_TRUE(lines[1].endsWith(u"The end."_s));
    EXPECT_TRUE(label.isElided());
    EXPECT_EQ(label.heightForWidth(300), label.heightForWidth(320)) << "two lines either way";
}

TEST_F(LabelTest, AShortTextOfTwoPossibleLinesTakesOne)
{
    ElidedLabel label(u"Short."_s, TextStyle::size11, TextColor::secondary, 2);
    show(label, {300, 40});
    EXPECT_THAT(label.shownLines(), ElementsAre(u"Short."_s));
}

TEST_F(LabelTest, TheAccessibleNameIsTheWholeText)
{
    ElidedLabel label(longPath, TextStyle::size11);
    show(label, {100, 20});
    EXPECT_EQ(outline(label), QStringList{u"StaticText "_s + longPath});
}

TEST_F(LabelTest, AnElidedTextIsShownWholeInATooltip)
{
    ElidedLabel whole(u"/home/demo"_s, TextStyle::size11);
    show(whole, {200, 20});
    EXPECT_FALSE(pointAt(whole));
    EXPECT_TRUE(QToolTip::text().isEmpty());
    ElidedLabel elided(longPath, TextStyle::size11);
    show(elided, {200, 20});
    EXPECT_TRUE(pointAt(elided));
    EXPECT_TRUE(QToolTip::text().contains(longPath)) << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST_F(LabelTest, MarkupAndAmpersandsAreText)
{
    Label label(u"<b>Tom</b> & Jerry"_s, TextStyle::size13);
    show(label, label.sizeHint());
    EXPECT_THAT(label.shownLines(), ElementsAre(u"<b>Tom</b> & Jerry"_s));
    EXPECT_EQ(outline(label), QStringList{u"StaticText <b>Tom</b> & Jerry"_s});
    EXPECT_EQ(plainToolTip(u"<b>Tom</b>"_s),
              u"<div style='white-space: pre-wrap'>&lt;b&gt;Tom&lt;/b&gt;</div>"_s);
    EXPECT_EQ(plainToolTip(u"a < b & c"_s), u"a < b & c"_s);
}

TEST_F(LabelTest, LineBreaksAreKeptInWrappedTextAndAreSpacesOnASingleLine)
{
    WrappedLabel wrapped(u"one\r\ntwo\nthree\u2028four\u2029five"_s, TextStyle::size11);
    show(wrapped, {300, 100});
    EXPECT_THAT(wrapped.shownLines(), ElementsAre(u"one"_s, u"two"_s, u"three"_s, u"four"_s, u"five"_s));
    ElidedLabel single(u"one\ntwo"_s, TextStyle::size11);
    show(single, {300, 20});
    EXPECT_THAT(single.shownLines(), ElementsAre(u"one two"_s));
}

TEST_F(LabelTest, WrappedTextGrowsInHeightAndIsNeverCutOff)
{
    const QString text = u"Seven words stand in this short sentence. "_s.repeated(10).trimmed();
    WrappedLabel label(text, TextStyle::size11);
    show(label, {200, label.heightForWidth(200)});
    QString shown;
    for (const QString &line : label.shownLines()) {
        EXPECT_LE(QFontMetricsF(label.font()).horizontalAdvance(line), 200);
        shown += (shown.isEmpty() ? u""_s : u" "_s) + line;
    }
    EXPECT_EQ(shown, text);
    EXPECT_GE(label.heightForWidth(200),
              int(label.shownLines().size()) * QFontMetricsF(label.font()).height());
}

TEST_F(LabelTest, BalancedLinesLeaveNoWordAlone)
{
    const QString text = u"Configure how the notch agent launches and the global shortcuts it listens for."_s;
    WrappedLabel label(text, TextStyle::size13, TextColor::secondary, WrappedLabel::Lines::balancedCentred);
    show(label, {400, 60});
    const std::vector<QString> lines = label.shownLines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_GE(lines[1].count(u' '), 2) << lines[1].toStdString();
    const QFontMetricsF metrics(label.font());
    EXPECT_GT(metrics.horizontalAdvance(lines[1]), 0.7 * metrics.horizontalAdvance(lines[0]));
}

TEST_F(LabelTest, BalancedLinesBreakAtSpacesOnly)
{
    const QString text =
        u"Clear persisted sessions and browser patterns, or remove the Claude/Codex hooks Vantle "
        "installed. These actions cannot be undone."_s;
    WrappedLabel label(text, TextStyle::size13, TextColor::secondary, WrappedLabel::Lines::balancedCentred);
    for (int width = 200; width <= 480; width += 20) {
        show(label, {width, 100});
        QStringList lines;
        for (const QString &line : label.shownLines())
            lines += line;
        EXPECT_EQ(lines.join(u' '), text) << width;
    }
}

TEST_F(LabelTest, TenThousandCharactersDoNotWidenALabel)
{
    const QString text = u"word "_s.repeated(2000);
    ElidedLabel elided(text, TextStyle::size11, TextColor::secondary, 2);
    show(elided, {300, 40});
    EXPECT_EQ(elided.shownLines().size(), 2U);
    EXPECT_LE(elided.minimumSizeHint().width(), 40);
    WrappedLabel wrapped(text, TextStyle::size11);
    EXPECT_LE(wrapped.sizeHint().width(), 640);
    ElidedLabel unbroken(QString(10000, u'W'), TextStyle::size11);
    show(unbroken, {300, 20});
    EXPECT_LE(QFontMetricsF(unbroken.font()).horizontalAdvance(unbroken.shownLines().front()), 300);
}

/// Texts of millions of characters. Laid out whole, each would keep the window busy for minutes.
const std::vector<QString> &veryLongTexts()
{
    constexpr qsizetype million = 1000000;
    static const std::vector<QString> texts{
        u'/' + u"w"_s.repeated(10 * million),
        u"/folder"_s.repeated(million),
        u"/e"_s + u"\u0301"_s.repeated(million) + u"/plan"_s,
        (u"/e"_s + u"\u0301"_s.repeated(1000)).repeated(1000),
        u"line\n"_s.repeated(million),
        u"/"_s + u"👩‍"_s.repeated(million),
        u"/שלום"_s.repeated(million),
    };
    return texts;
}

TEST_F(LabelTest, OnlyTheEndsOfAVeryLongTextAreLaidOut)
{
    for (const QString &text : veryLongTexts()) {
        for (const int lines : {1, 2}) {
            ElidedLabel label(text, TextStyle::size11, TextColor::primary, lines);
            show(label, {300, 40});
            label.grab();
            EXPECT_LE(label.shownLines().size(), size_t(lines));
            EXPECT_LE(QFontMetricsF(label.font()).horizontalAdvance(label.shownLines().back()), 300);
            EXPECT_TRUE(label.isElided());
            EXPECT_EQ(label.text(), text);
            EXPECT_EQ(label.accessibleName(), text);
        }
        WrappedLabel wrapped(text, TextStyle::size11);
        show(wrapped, {300, wrapped.heightForWidth(300)});
        wrapped.grab();
        const std::vector<QString> lines = wrapped.shownLines();
        const qsizetype shown =
            std::accumulate(lines.begin(), lines.end(), qsizetype{0},
                            [](qsizetype sum, const QString &line) { return sum + line.size(); });
        EXPECT_LE(shown, 5001);
        EXPECT_LE(wrapped.height(), 200 * 16);
        EXPECT_EQ(wrapped.accessibleName(), text);
        EXPECT_LT(plainToolTip(text).size(), 2200);
    }
}

TEST_F(LabelTest, TheLongestPathOfAFileIsWrappedWhole)
{
    const QString path = u"Reads "_s + u"/folder-12"_s.repeated(409) + u"."_s;
    WrappedLabel label(path, TextStyle::size11);
    show(label, {300, label.heightForWidth(300)});
    QString shown;
    for (const QString &line : label.shownLines())
        shown += line;
    EXPECT_EQ(shown.remove(u' '), QString(path).remove(u' '));
}

TEST_F(LabelTest, ATextThatContainsAnEllipsisIsStillReportedAsElided)
{
    for (const QString &text :
         {u"/home/demo/…/"_s.repeated(20), longPath.first(300) + u'…' + longPath.last(300)}) {
        ElidedLabel label(text, TextStyle::size11);
        show(label, {200, 20});
        EXPECT_TRUE(label.isElided()) << text.toStdString();
        EXPECT_TRUE(pointAt(label));
        EXPECT_TRUE(QToolTip::text().contains(text)) << QToolTip::text().toStdString();
        QToolTip::hideText();
    }
}

TEST_F(LabelTest, ATextThatIsShownWholeIsNotElided)
{
    ElidedLabel lines(u"a\nb\nc"_s, TextStyle::size11, TextColor::primary, 2);
    show(lines, {200, 40});
    EXPECT_THAT(lines.shownLines(), ElementsAre(u"a"_s, u"b c"_s));
    EXPECT_FALSE(lines.isElided());
}

TEST_F(LabelTest, SurrogatePairsAndRightToLeftTextStayWhole)
{
    ElidedLabel label(u"🦊"_s.repeated(60), TextStyle::size11);
    show(label, {100, 20});
    for (const QString &part : label.shownLines().front().split(QChar(0x2026)))
        EXPECT_EQ(part, u"🦊"_s.repeated(part.size() / 2)) << "half of a surrogate pair";
    ElidedLabel hebrew(u"שלום עולם"_s, TextStyle::size11);
    show(hebrew, {200, 20});
    EXPECT_THAT(hebrew.shownLines(), ElementsAre(u"שלום עולם"_s));
}

TEST_F(LabelTest, APathBeginsOnTheLeftWhateverTheScriptOfItsFolders)
{
    Label root(u"/"_s, TextStyle::size13);
    show(root, root.sizeHint());
    const QRect slash = root.rect().adjusted(0, 0, -1, 0); // its last column may touch the next letter
    Label hebrew(u"/שלום"_s, TextStyle::size13);
    show(hebrew, {hebrew.sizeHint().width(), root.height()});
    EXPECT_EQ(hebrew.grab(slash).toImage(), root.grab(slash).toImage());
}

TEST_F(LabelTest, ANewTextReplacesTheShownAndTheAccessibleOne)
{
    ElidedLabel label(u"before"_s, TextStyle::size11);
    show(label, {200, 20});
    EXPECT_THAT(label.shownLines(), ElementsAre(u"before"_s));
    label.setText(u"after"_s);
    EXPECT_THAT(label.shownLines(), ElementsAre(u"after"_s));
    EXPECT_EQ(outline(label), QStringList{u"StaticText after"_s});
}

} // namespace
