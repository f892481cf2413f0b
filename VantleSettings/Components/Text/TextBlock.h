#pragma once

#include <QTextLayout>

#include <map>
#include <memory>
#include <optional>
#include <vector>

class QPainter;

/// How a text is put into lines.
struct TextFlow {
    int maximumLines = 0;  ///< a longer text is elided in the middle of the last line; 0 for no limit
    bool balanced = false; ///< lines of about the same length, rather than a last line of one word
    bool canShrink = true; ///< may become narrower than the text on one line
};

/// A text in a font. Measures it, breaks it into lines and draws it, at any width in points. The text's own
/// line breaks are kept, except in the last line that a limit allows.
///
/// The toolkit's labels have neither a limit of lines nor balanced ones. Shaping takes a large part of the
/// start-up. So endLayout() is not called before the first drawing: until then the QTextLayout keeps the
/// shaped text, while the window tries widths.
class TextBlock
{
public:
    TextBlock(const QString &text, const QFont &font, TextFlow flow);

    /// The width of the text when nothing limits it, rounded up.
    int naturalWidth() const { return m_naturalWidth; }

    /// Whether the text is elided at this width.
    bool isElided(int width);

    /// How many lines there are at this width, one at least.
    int lineCount(int width);

    /// The lines as they are drawn at this width.
    std::vector<QString> lines(int width);

    /// Draws the lines, each `lineHeight` high and `lineGap` apart, in the middle of the box's height.
    /// `lineAlignment` places each line in the box's width: 0 at the left, 0.5 centred, 1 at the right.
    void draw(QPainter &painter, const QRect &box, qreal lineAlignment, int lineHeight, int lineGap);

private:
    void begin();
    void breakAt(int width);
    void layOut(int width);
    std::unique_ptr<QTextLayout> elideLastLine(qsizetype start, int width);

    TextFlow m_flow;
    bool m_isShortened; ///< before layout, which would take too long for the whole text
    QTextLayout m_layout;
    bool m_isBegun = false; ///< beginLayout() was called and endLayout() was not
    int m_naturalWidth = 0;
    std::optional<int> m_width;                ///< for which the members below were made
    int m_wholeLines = 0;                      ///< the number of lines drawn from `m_layout`
    std::unique_ptr<QTextLayout> m_elidedLine; ///< the last line, if there are more than the limit
    bool m_isCut = false;                      ///< `m_elidedLine` leaves something out
    std::map<int, int> m_lineCounts;           ///< by width
};
