#pragma once

#include <QColor>
#include <QFont>

class QWidget;

/// The design tokens. Sizes are points (device-independent pixels), durations milliseconds.
namespace Tokens
{

inline constexpr QColor windowBackground{0, 0, 0};
inline constexpr QColor sidebarBackground{0x16, 0x16, 0x18};
inline constexpr QColor cardBackground{0x1C, 0x1C, 0x1E};
inline constexpr QColor buttonBackground{0x3A, 0x3A, 0x3C};
inline constexpr QColor buttonHover{0x48, 0x48, 0x4A};
inline constexpr QColor buttonPressed{0x2C, 0x2C, 0x2E};
inline constexpr QColor toolTipBackground{0x2C, 0x2C, 0x2E};
inline constexpr QColor menuBackground{0x2C, 0x2C, 0x2E};
inline constexpr QColor sidebarHover{255, 255, 255, 15};     // white 6 %
inline constexpr QColor sidebarSelection{255, 255, 255, 31}; // white 12 %
inline constexpr QColor switchOff{255, 255, 255, 46};        // white 18 %
inline constexpr QColor quaternaryFill{255, 255, 255, 26};   // white 10 %
inline constexpr QColor scrollBarHandle{255, 255, 255, 77};  // white 30 %

inline constexpr int sidebarWidth = 215;
inline constexpr int sidebarEntryHeight = 34;
inline constexpr int sidebarEntryInset = 10;
inline constexpr int sidebarEntryGap = 8;
inline constexpr int sidebarEntryRadius = 8;
inline constexpr int iconTile = 22;
inline constexpr int iconTileRadius = 6;
inline constexpr int iconTilePointSize = 11;
inline constexpr int cardRadius = 12;
inline constexpr int buttonRadius = 6;
inline constexpr int smallButtonHeight = 22;
inline constexpr int smallButtonPadding = 10;
inline constexpr int largeButtonHeight = 30;
inline constexpr int largeButtonPadding = 16;
inline constexpr int pickerMinimumWidth = 130; ///< so that pickers below each other look alike
inline constexpr int pickerMaximumWidth = 200;
inline constexpr int switchWidth = 26;
inline constexpr int switchHeight = 15;
inline constexpr int focusRingWidth = 3;
inline constexpr qreal focusRingOpacity = 0.6;
inline constexpr int scrollBarWidth = 7;
inline constexpr int toolTipRadius = 6;
inline constexpr int rowPadding = 16;         ///< left and right of a row's content
inline constexpr int rowPaddingVertical = 12; ///< above and below a row's content
inline constexpr int rowSpacing = 12;
inline constexpr int groupSpacing = 6; ///< between header, card and footer
inline constexpr int pageSpacing = 24; ///< between the groups of a page

inline constexpr int switchDuration = 150;
inline constexpr int recorderDuration = 120;

QColor separator(); ///< white 12 %, stronger where the user wants more contrast

} // namespace Tokens

/// The text sizes and weights of the window, named by size in points and weight; regular where none is named.
enum class TextStyle {
    size10,
    size11,
    size11Semibold,
    groupHeader, ///< 11 semibold with letter spacing 0.4
    size12,
    size12Medium,
    size12Semibold,
    size12SemiboldMono, ///< in the monospaced face
    size13,
    size13Medium,
    size13Semibold,
    size15Semibold,
    size22Semibold,
};

/// Reads the system's font and text size, which all texts have from then on. Sizes of lines and controls
/// follow the text.
void adoptSystemFont();

/// The colours of text. `primary80` is `primary` at 80 % of its opacity, `secondary70` is `secondary` at
/// 70 %.
enum class TextColor { primary, primary80, secondary, secondary70, tertiary, white, accent };

QFont textFont(TextStyle style);

/// The factor by which texts are larger than usual, at least 1.
qreal textScale();

/// A width or height in points, multiplied by the text scale.
int scaledWithText(int points);

/// Gives a widget the font of this style; refreshTextStyles() updates it when the text size changes.
void setTextStyle(QWidget &widget, TextStyle style);

/// Gives every widget with a text style the font for the present text size.
void refreshTextStyles();

QColor textColor(TextColor level);
