#pragma once

#include <QPlainTextEdit>

#include <functional>

/// A small editor for a list with one entry per line. It grows with its text between two heights and scrolls
/// beyond them; Tab moves the focus. It accepts plain text only. The middle of a text that would take too
/// long to lay out is folded: shown as "…", and copied, deleted and restored as a whole.
class PatternsEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    static constexpr int minimumHeight = 70; ///< in points
    static constexpr int maximumHeight = 96; ///< in points
    /// Returns the function from a number of lines, none of them wrapped, to the height in points with the
    /// present fonts.
    static std::function<int(qsizetype lines)> expectedHeight();

    explicit PatternsEditor(QWidget *parent = nullptr);

    /// The text with line feeds between its lines, all other characters as they are.
    const QString &text() const { return m_text; }
    /// Shows this text. If it is the present one, keeps caret, selection and undo history. Does not emit
    /// `edited`.
    void setText(const QString &text);

    /// Whether a new editor with the same text would differ in caret, selection, scroll position or undo
    /// history.
    bool isTouched() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    /// The user has changed the text.
    void edited(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    QMimeData *createMimeDataFromSelection() const override;

private:
    void readText();
    void fitHeight();

    QString m_text;
    int m_height = minimumHeight;
};
