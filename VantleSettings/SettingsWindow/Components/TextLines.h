#pragma once

#include <QFont>
#include <QString>

#include <vector>

/// How a text is put into lines.
struct TextFlow {
    int maximumLines = 0;  ///< what does not fit is left out in the middle of the last line; 0 for no limit
    bool balanced = false; ///< lines of about the same length, none with a word of its own
    bool givesWay = true;  ///< may become narrower than the text on one line
};

/// The lines of a text at this width in points. The text's own line breaks hold, except in the last line that
/// a limit allows.
std::vector<QString> textLines(const QString &text, const QFont &font, qreal width, TextFlow flow);

/// The width of the longest line, in points, rounded up.
int widthOfLines(const std::vector<QString> &lines, const QFont &font);
