#include "Components/Buttons.h"
#include "Components/PathRow.h"
#include "Components/Picker.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Components/SidebarIcon.h"
#include "Components/Switch.h"
#include "Components/Text/Label.h"
#include "Foundation/Seam.h"
#include "LookTest.h"
#include "Platform/Desktop/Pasteboard.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace
{

class RowTest : public LookTest
{
protected:
    static QRect placeOf(const QWidget &widget, const QWidget &within)
    {
        return {widget.mapTo(&within, QPoint()), widget.size()};
    }

    template <class Part>
    static Part *partOf(const QWidget &widget, int index = 0)
    {
        return widget.findChildren<Part *>().at(index);
    }
};

TEST_F(RowTest, ARowIsPaddedBy16And12WithItsTextAt50AndItsControlAtTheEnd)
{
    SettingsRow row({.icon = u"power"_s,
                     .tint = SystemColor::green,
                     .title = u"Launch at Login"_s,
                     .subtitle = u"Keep the notification agent running via launchd."_s,
                     .accessory = new Switch});
    show(row, {600, row.sizeHint().height()});
    const QRect icon = placeOf(*partOf<SidebarIcon>(row), row);
    const QRect title = placeOf(*partOf<ElidedLabel>(row, 0), row);
    const QRect subtitle = placeOf(*partOf<ElidedLabel>(row, 1), row);
    const QRect control = placeOf(*partOf<Switch>(row), row);
    EXPECT_EQ(icon.left(), 16);
    EXPECT_EQ(icon.size(), QSize(22, 22));
    EXPECT_EQ(title.left(), 50);
    EXPECT_EQ(subtitle.left(), 50);
    EXPECT_EQ(title.top(), 12);
    EXPECT_EQ(row.height() - (subtitle.bottom() + 1), 12);
    EXPECT_EQ(600 - (control.right() + 1), 16);
    EXPECT_NEAR(control.center().y(), icon.center().y(), 1);
    EXPECT_NEAR(icon.center().y(), row.rect().center().y(), 1);
}

TEST_F(RowTest, ATitleAloneIsCentredAgainstTheIcon)
{
    SettingsRow row({.icon = u"power"_s, .tint = SystemColor::green, .title = u"Alone"_s});
    show(row, {600, row.sizeHint().height()});
    EXPECT_EQ(row.height(), 12 + 22 + 12);
    EXPECT_NEAR(placeOf(*partOf<ElidedLabel>(row), row).center().y(), row.rect().center().y(), 1);
    EXPECT_FALSE(partOf<ElidedLabel>(row, 1)->isVisible());
}

TEST_F(RowTest, ARowIsMirroredFromRightToLeft)
{
    SettingsRow row(
        {.icon = u"power"_s, .tint = SystemColor::green, .title = u"T"_s, .accessory = new Switch});
    row.setLayoutDirection(Qt::RightToLeft);
    show(row, {600, row.sizeHint().height()});
    EXPECT_EQ(placeOf(*partOf<Switch>(row), row).left(), 16);
    EXPECT_EQ(600 - (placeOf(*partOf<SidebarIcon>(row), row).right() + 1), 16);
}

TEST_F(RowTest, AControlTakesItsNameAndDescriptionFromTheRow)
{
    auto *control = new Switch;
    SettingsRow row({.icon = u"power"_s,
                     .tint = SystemColor::green,
                     .title = u"Launch at Login"_s,
                     .subtitle = u"Before."_s,
                     .accessory = control});
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(control);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Launch at Login"_s);
    EXPECT_EQ(accessible->text(QAccessible::Description), u"Before."_s);
    row.setSubtitle(u"After."_s);
    EXPECT_EQ(accessible->text(QAccessible::Description), u"After."_s);
}

TEST_F(RowTest, AControlThatHasANameKeepsIt)
{
    auto *clear = new PushButton(u"Clear…"_s);
    clear->setAccessibleName(u"Clear Sessions…"_s);
    const SettingsRow row({.icon = u"globe"_s, .title = u"Sessions"_s, .accessory = clear});
    EXPECT_EQ(clear->accessibleName(), u"Clear Sessions…"_s);
}

TEST_F(RowTest, APickerIsLabelledByTheTitle)
{
    auto *picker = new Picker;
    const SettingsRow row({.icon = u"textformat"_s, .title = u"Typeface"_s, .accessory = picker});
    const auto relations = QAccessible::queryAccessibleInterface(picker)->relations(QAccessible::Label);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations.first().first->text(QAccessible::Name), u"Typeface"_s);
}

TEST_F(RowTest, AButtonIsNotLabelledByTheTitleOnTopOfItsOwnName)
{
    auto *clear = new PushButton(u"Clear…"_s);
    clear->setAccessibleName(u"Clear Sessions…"_s);
    const SettingsRow row({.icon = u"globe"_s, .title = u"Sessions"_s, .accessory = clear});
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(clear)->relations(QAccessible::Label).isEmpty());
}

TEST_F(RowTest, APickersWholeTextIsExposedAsSelected)
{
    Picker picker;
    picker.setEntries({u"iTerm2"_s, u"Vantle Terminal"_s});
    picker.setCurrentIndex(1);
    QAccessibleTextInterface *text = QAccessible::queryAccessibleInterface(&picker)->textInterface();
    ASSERT_NE(text, nullptr);
    int start = -1;
    int end = -1;
    text->selection(0, &start, &end);
    EXPECT_EQ(text->text(start, end), u"Vantle Terminal"_s);
}

TEST_F(RowTest, TilesDividersAndLayoutAreNotInTheAccessibilityTree)
{
    SettingsGroup group({.header = u"Updates"_s, .footer = u"A footer."_s},
                        {new SettingsRow({.icon = u"globe"_s, .title = u"One"_s, .accessory = new Switch}),
                         new SettingsRowDivider,
                         new SettingsRow({.icon = u"globe"_s, .title = u"Two"_s, .subtitle = u"More."_s})});
    show(group, {500, 200});
    EXPECT_EQ(outline(group), QStringList({u"Grouping Updates"_s, u" StaticText Updates"_s,
                                           u" StaticText One"_s, u" CheckBox One"_s, u" StaticText Two"_s,
                                           u" StaticText More."_s, u" StaticText A footer."_s}));
}

TEST_F(RowTest, AGroupIsNamedByItsHeaderAndDescribedByItsFooter)
{
    SettingsGroup group({.header = u"Recording"_s, .footer = u"First."_s}, {});
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&group);
    EXPECT_EQ(accessible->role(), QAccessible::Grouping);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Recording"_s);
    EXPECT_EQ(accessible->text(QAccessible::Description), u"First."_s);
    group.setFooter(u"Second."_s);
    EXPECT_EQ(accessible->text(QAccessible::Description), u"Second."_s);
    group.setFooter({});
    EXPECT_EQ(accessible->text(QAccessible::Description), QString());
}

TEST_F(RowTest, AHeaderIsShownInUpperCase)
{
    SettingsGroup group({.header = u"Keyboard shortcuts äß"_s}, {});
    show(group, {500, 100});
    EXPECT_EQ(partOf<Label>(group)->text(), u"KEYBOARD SHORTCUTS ÄSS"_s);
}

TEST_F(RowTest, AFootersKeySignsAreSpokenAsWordsButNotThoseOfAPath)
{
    SettingsGroup group({.footer = u"Record ⌘K."_s}, {});
    const auto *footer = partOf<WrappedLabel>(group);
    EXPECT_EQ(footer->accessibleName(), u"Record Command K."_s);
    group.setFooter(u"Reads /home/⌘K/projects.toml."_s);
    EXPECT_EQ(footer->accessibleName(), u"Reads /home/⌘K/projects.toml."_s);
}

TEST_F(RowTest, HeaderCardAndFooterAreSixPointsApart)
{
    auto *content = new QWidget;
    content->setFixedHeight(50);
    SettingsGroup group({.header = u"H"_s, .footer = u"F"_s}, {content});
    show(group, {500, group.sizeHint().height()});
    const QRect header = placeOf(*partOf<Label>(group), group);
    const QRect card = placeOf(*content->parentWidget(), group);
    const QRect footer = placeOf(*partOf<WrappedLabel>(group), group);
    EXPECT_EQ(header.top(), 0);
    EXPECT_EQ(card.top() - (header.bottom() + 1), 6);
    EXPECT_EQ(card.height(), 50);
    EXPECT_EQ(card.width(), 500);
    EXPECT_EQ(footer.top() - (card.bottom() + 1), 6);
    EXPECT_EQ(group.height(), footer.bottom() + 1);
}

TEST_F(RowTest, AGroupWithNeitherHeaderNorFooterIsItsCard)
{
    auto *content = new QWidget;
    content->setFixedHeight(50);
    SettingsGroup group({}, {content});
    show(group, {500, group.sizeHint().height()});
    EXPECT_EQ(group.height(), 50);
    EXPECT_EQ(placeOf(*content->parentWidget(), group), group.rect());
}

TEST_F(RowTest, NewRowsReplaceTheOldOnesAndKeepThoseThatStay)
{
    QPointer<QWidget> stays = new QWidget;
    QPointer<QWidget> goes = new QWidget;
    SettingsGroup group({}, {stays, goes});
    auto *comes = new QWidget;
    group.setRows({comes, stays});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(stays);
    EXPECT_FALSE(goes);
    EXPECT_EQ(comes->parentWidget(), stays->parentWidget());
}

class RecordingPasteboard : public Pasteboard
{
public:
    QStringList texts;
    void setText(const QString &text) override { texts += text; }
};

TEST_F(RowTest, CopyingPutsThePathExactlyAsGivenOnThePasteboard)
{
    RecordingPasteboard pasteboard;
    const Seam<Pasteboard>::Replacement replacement(pasteboard);
    const QString path = u"~/Library/./LaunchAgents//com.vantle.agent.plist "_s;
    PathRow row(u"LaunchAgent"_s, path);
    show(row, {500, 40});
    auto *copy = partOf<IconButton>(row);
    EXPECT_EQ(copy->toolTip(), u"Copy path"_s);
    copy->click();
    copy->click();
    EXPECT_EQ(pasteboard.texts, QStringList({path, path}));
}

TEST_F(RowTest, ACopyButtonsAccessibleDescriptionIsTheWholePath)
{
    const QString path = u"/home/demo/"_s + u"deep/"_s.repeated(60) + u"file.json"_s;
    PathRow row(u"Sessions"_s, path);
    show(row, {400, 40});
    EXPECT_EQ(outline(row), QStringList({u"Client "_s, u" StaticText Sessions"_s, u" StaticText "_s + path,
                                         u" Button Copy path of Sessions"_s}));
    const auto *copy = QAccessible::queryAccessibleInterface(partOf<IconButton>(row));
    EXPECT_EQ(copy->text(QAccessible::Description), path) << "it is read when Tab reaches the button";
    EXPECT_EQ(partOf<ElidedLabel>(row)->width(), 136);
    EXPECT_TRUE(partOf<ElidedLabel>(row, 1)->isElided());
}

TEST_F(RowTest, LargerTextMakesTallerRowsAndCutsNothingOff)
{
    for (const qreal scale : {1.0, 1.2, 1.5}) {
        useTextScale(scale);
        SettingsRow row({.icon = u"globe"_s,
                         .title = u"Ägypten"_s,
                         .subtitle = u"A subtitle that needs its two lines because the row is narrow."_s,
                         .accessory = new PushButton(u"Choose…"_s)});
        const int width = qRound(360 * scale); // the window's sizes grow with its texts
        show(row, {width, row.heightForWidth(width)});
        EXPECT_EQ(partOf<ElidedLabel>(row, 1)->shownLines().size(), 2) << scale;
        for (const ElidedLabel *label : row.findChildren<ElidedLabel *>()) {
            EXPECT_FALSE(label->isElided()) << label->text().toStdString() << " at " << scale;
            EXPECT_GE(label->height(), label->heightForWidth(label->width()));
            EXPECT_GE(label->height(), int(label->shownLines().size()) * label->fontMetrics().height());
        }
        const auto *button = partOf<PushButton>(row);
        EXPECT_GE(button->height(), button->fontMetrics().height());
        EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 20);
    }
    useTextScale(1);
}

} // namespace
