#pragma once

#include "Components/Drawing/Tokens.h"
#include "Components/Text/TextBlock.h"

#include <QLabel>

#include <memory>
#include <vector>

/// Makes the content of a tooltip that shows this text literally: markup in it is escaped, a long text wraps,
/// and a very long one is shortened.
QString plainToolTip(const QString &text);

/// A text on one line, shown whole and as it is: nothing in it is ever markup or a mnemonic.
///
/// It is a QLabel for the sake of its role and its buddy. It draws the text itself, so QLabel's text stays
/// empty.
class Label : public QLabel
{
    Q_OBJECT

public:
    explicit Label(const QString &text, TextStyle style, TextColor textColor = TextColor::primary,
                   QWidget *parent = nullptr);

    const QString &text() const { return m_text; }
    void setText(const QString &text);
    void setTextColor(TextColor textColor);

    /// The lines as shown at the present width.
    std::vector<QString> shownLines() const { return block().lines(contentsRect().width()); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    Label(const QString &text, TextStyle style, TextColor textColor, TextFlow flow, QWidget *parent);
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    TextBlock &block() const;

private:
    int heightOf(int lines) const;
    int lineHeight() const;
    int marginsWidth() const;
    void forgetBlock();
    bool wraps() const { return m_flow.maximumLines != 1; }

    QString m_text;
    TextColor m_textColor;
    TextFlow m_flow;
    mutable std::unique_ptr<TextBlock> m_block; ///< made when it is first needed
};

/// A text that wraps and grows in height; never cut off.
class WrappedLabel : public Label
{
    Q_OBJECT

public:
    enum class Lines { leading, balancedCentred };

    explicit WrappedLabel(const QString &text, TextStyle style, TextColor textColor = TextColor::primary,
                          Lines lines = Lines::leading, QWidget *parent = nullptr);
};

/// A text of at most `maximumLines` lines. If it does not fit, it is elided in the middle of the last line;
/// the whole text is in the tooltip and in the accessibility tree.
class ElidedLabel : public Label
{
    Q_OBJECT

public:
    explicit ElidedLabel(const QString &text, TextStyle style, TextColor textColor = TextColor::primary,
                         int maximumLines = 1, QWidget *parent = nullptr);

    /// Whether the text is elided at the present width.
    bool isElided() const;

protected:
    bool event(QEvent *event) override;
};
