#pragma once

#include <QTextLayout>

#include <map>
#include <memory>
#include <optional>
#include <vector>

class QPainter;

/// How a text is put into lines.
struct TextFlow {
    int maximumLines = 0;  ///< what does not fit is left out in the middle of the last line; 0 for no limit
    bool balanced = false; ///< lines of about the same length, none with a word of its own
    bool canShrink = true; ///< may become narrower than the text on one line
};

/// A text in a font, measured, broken into lines and drawn at whatever width is asked for. Widths are in
/// points. The text's own line breaks hold, except in the last line that a limit allows.
///
/// No label of the toolkit knows a limit of lines or balanced ones. Shaping is a good part of a start, so the
/// toolkit's layout stays begun, and thereby keeps its shapes, while the window tries widths, until the first
/// drawing.
class TextBlock
{
public:
    TextBlock(const QString &text, const QFont &font, TextFlow flow);

    /// What the text takes where nothing limits it, rounded up.
    int naturalWidth() const { return m_naturalWidth; }

    /// Whether something is left out at this width.
    bool isElided(int width);

    /// How many lines there are at this width, one at least.
    int lineCount(int width);

    /// The lines as they are drawn at this width.
    std::vector<QString> lines(int width);

    /// Draws the lines, each `lineHeight` high and `lineGap` apart, in the middle of the box's height.
    /// `share` is what part of a line's spare room stands before it: 0 on the left, 1 on the right.
    void draw(QPainter &painter, const QRect &box, qreal share, int lineHeight, int lineGap);

private:
    void begin();
    void breakAt(int width);
    void layOut(int width);
    std::unique_ptr<QTextLayout> elideLastLine(qsizetype start, int width);

    TextFlow m_flow;
    bool m_isShortened; ///< before it was laid out, which would take too long for all of it
    QTextLayout m_layout;
    bool m_isBegun = false; ///< the layout is begun and not ended
    int m_naturalWidth = 0;
    std::optional<int> m_width;                ///< of the present lines, which are these:
    int m_wholeLines = 0;                      ///< those of the layout, and after them
    std::unique_ptr<QTextLayout> m_elidedLine; ///< the last line where not all of them are drawn
    bool m_isCut = false;                      ///< something is left out in that line
    std::map<int, int> m_lineCounts;           ///< by width
};
