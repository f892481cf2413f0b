#include "SettingsWindow/Components/PatternsEditor.h"

#include "SettingsWindow/Components/Tokens.h"

#include <QFontMetrics>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

// QTextDocument::toPlainText() would turn no-break spaces and line separators into others.
QString plainText(const QTextDocument &document)
{
    return document.toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

int heightOf(qreal lines, int lineSpacing)
{
    // The editor scrolls as soon as its lines fill it to the last point.
    const int height = int(std::ceil(lines * lineSpacing)) + 1;
    return std::clamp(height, PatternsEditor::minimumHeight, PatternsEditor::maximumHeight);
}

} // namespace

std::function<int(qsizetype lines)> PatternsEditor::expectedHeight()
{
    const int lineSpacing = QFontMetrics(textFont(TextStyle::size12)).lineSpacing();
    return [lineSpacing](qsizetype lines) { return heightOf(qreal(lines), lineSpacing); };
}

PatternsEditor::PatternsEditor(QWidget *parent) : QPlainTextEdit(parent)
{
    setFrameShape(QFrame::NoFrame);
    setFont(textFont(TextStyle::size12));
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    document()->clearUndoRedoStacks(); // which count the margin
    connect(this, &QPlainTextEdit::textChanged, this, &PatternsEditor::readText);
    fitHeight();
}

void PatternsEditor::setText(const QString &text)
{
    if (text == m_text)
        return;
    const QSignalBlocker ours(this); // a change of the program's, not the user's
    m_text = text;
    setPlainText(text);
    fitHeight();
}

std::unique_ptr<PatternsEditor::Work> PatternsEditor::takeWork()
{
    const QTextCursor cursor = textCursor();
    const int scroll = verticalScrollBar()->value();
    const bool untouched = !document()->isUndoAvailable() && !document()->isRedoAvailable();
    if (untouched && cursor.position() == 0 && cursor.anchor() == 0 && scroll == 0)
        return nullptr;
    auto work = std::make_unique<Work>(
        Work{std::exchange(m_text, {}), std::unique_ptr<QTextDocument>(document()), cursor, scroll});
    work->document->setParent(nullptr);
    const QSignalBlocker ours(this);
    setDocument(nullptr);
    return work;
}

void PatternsEditor::takeUp(std::unique_ptr<Work> work)
{
    const QSignalBlocker ours(this);
    m_text = work->text;
    work->document->setParent(this);
    setDocument(work->document.release());
    setTextCursor(work->cursor);
    verticalScrollBar()->setValue(work->scroll);
    fitHeight();
}

QSize PatternsEditor::sizeHint() const
{
    return {0, m_height};
}

void PatternsEditor::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    fitHeight();
}

void PatternsEditor::readText()
{
    fitHeight();
    QString text = plainText(*document());
    if (text == m_text)
        return;
    m_text = std::move(text);
    Q_EMIT edited(m_text);
}

void PatternsEditor::fitHeight()
{
    // The height of a plain-text document is its number of lines, wrapped ones included.
    const qreal lines = document()->size().height();
    const int height = heightOf(lines, QFontMetrics(font()).lineSpacing());
    if (std::exchange(m_height, height) != height)
        updateGeometry();
}
