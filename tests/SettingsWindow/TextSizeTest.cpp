#include "Components/Buttons.h"
#include "Components/Drawing/Tokens.h"
#include "Components/Picker.h"
#include "Components/Style/Look.h"
#include "Components/Text/Label.h"
#include "FakeFonts.h"
#include "Finding.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "SettingsWindow/SettingsWindowController.h"
#include "SettingsWindow/Sidebar.h"

#include <QApplication>
#include <QScreen>
#include <QStyleOption>

#include <gtest/gtest.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace
{

/// As on a desktop whose font is this much larger than usual.
void useTextScale(qreal scale)
{
    QFont font(u"Inter"_s);
    font.setPointSizeF(11 * scale);
    QApplication::setFont(font);
    installLook(*qApp);
}

/// The text that a closed picker shows of its choice.
QString shownBy(const Picker &picker)
{
    QStyleOptionComboBox option;
    option.initFrom(&picker);
    option.currentText = picker.currentText();
    const QRect text =
        picker.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &picker);
    return option.fontMetrics.elidedText(option.currentText, Qt::ElideMiddle, text.width());
}

/// The window at its least size with texts of one size; the typeface is missing.
class TextSize : public testing::TestWithParam<int>
{
public:
    ~TextSize() override
    {
        controller.reset();
        useTextScale(1);
    }
    Q_DISABLE_COPY_MOVE(TextSize)

protected:
    TextSize()
    {
        useTextScale(GetParam() / 100.0);
        fonts.installed = false;
        world.put(u".vantle/typeface.json"_s, R"({"name":"jetbrains-mono"})");
        model.emplace();
        controller.emplace(SettingsSection::general, *model);
    }

    SettingsNSWindow &window() { return controller->window(); }

    OutsideWorld world;
    FakeFonts fonts;
    std::optional<SettingsModel> model;
    std::optional<SettingsWindowController> controller;
};

TEST_P(TextSize, TheFirstAndTheLeastSizeGrowWithIt)
{
    const qreal scale = GetParam() / 100.0;
    const QSize screen = window().screen()->availableSize();
    EXPECT_EQ(window().size(), QSize(qRound(860 * scale), qRound(640 * scale)).boundedTo(screen));
    EXPECT_EQ(window().minimumSize(), QSize(qRound(780 * scale), qRound(540 * scale)).boundedTo(screen));
}

TEST_P(TextSize, EveryTextOfTheProgramItselfIsWholeInTheLeastWindow)
{
    controller->showWindow();
    window().resize(window().minimumSize());
    int checked = 0;
    for (const SettingsSection section : allSettingsSections) {
        model->section = section;
        for (int round = 0; round < 4; ++round)
            settle();
        for (const auto *label : window().findChildren<ElidedLabel *>()) {
            if (!label->isVisible() || label->text().contains(u'/')) // a path, or a text with one
                continue;
            ++checked;
            EXPECT_FALSE(label->isElided()) << label->text().toStdString() << " in " << label->width();
        }
        for (const auto *button : window().findChildren<PushButton *>())
            EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
        for (const auto *picker : window().findChildren<Picker *>())
            EXPECT_EQ(shownBy(*picker), picker->currentText()) << "in " << picker->width();
    }
    EXPECT_GT(checked, 20);
}

TEST_P(TextSize, TheSidebarHasRoomForItsTitles)
{
    controller->showWindow();
    settle();
    const Sidebar &sidebar = *window().findChild<Sidebar *>();
    const int room = sidebar.viewport()->width() - 2 * Tokens::sidebarEntryInset - Tokens::iconTile -
                     3 * Tokens::sidebarEntryGap;
    for (int row = 0; row < sidebar.count(); ++row) {
        const QString title = sidebar.item(row)->text();
        EXPECT_GE(room, QFontMetrics(textFont(TextStyle::size13Medium)).horizontalAdvance(title))
            << title.toStdString();
    }
}

TEST_P(TextSize, TheOpenWindowFollowsAChange)
{
    useTextScale(1);
    controller.emplace(SettingsSection::general, *model);
    controller->showWindow();
    settle();
    ASSERT_EQ(window().size(), QSize(860, 640));
    useTextScale(GetParam() / 100.0);
    settle();
    SettingsWindowController another(SettingsSection::general, *model);
    another.showWindow();
    settle();
    EXPECT_EQ(window().size(), another.window().size());
    EXPECT_EQ(window().minimumSize(), another.window().minimumSize());
    EXPECT_EQ(window().findChild<Sidebar *>()->width(), another.window().findChild<Sidebar *>()->width());
    const auto labels = window().findChildren<Label *>();
    const auto wanted = another.window().findChildren<Label *>();
    ASSERT_EQ(labels.size(), wanted.size());
    for (qsizetype i = 0; i < labels.size(); ++i)
        EXPECT_EQ(labels[i]->font(), wanted[i]->font()) << labels[i]->text().toStdString();
    for (const auto *picker : window().findChildren<Picker *>())
        EXPECT_EQ(shownBy(*picker), picker->currentText()) << "in " << picker->width();
}

INSTANTIATE_TEST_SUITE_P(Hundredths, TextSize, testing::Values(100, 110, 120, 125, 130, 140, 150));

} // namespace
