#include "Components/Text/PatternsEditor.h"

#include "Components/Drawing/Tokens.h"
#include "Components/Text/AccessibleEditor.h"
#include "Components/Text/DocumentText.h"
#include "Components/Text/TouchScrolling.h"

#include <QClipboard>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

QAccessibleInterface *editorFactory(const QString &, QObject *object)
{
    auto *editor = qobject_cast<PatternsEditor *>(object);
    return editor ? new AccessibleEditor(editor) : nullptr;
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
    QAccessible::installFactory(editorFactory); // has no effect after the first call
    setFrameShape(QFrame::NoFrame);
    setTextStyle(*this, TextStyle::size12);
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    viewport()->setAutoFillBackground(false);
    new TouchScrolling(this);
    document()->setDocumentMargin(0);
    document()->clearUndoRedoStacks(); // setting the margin counts as a change
    connect(this, &QPlainTextEdit::textChanged, this, &PatternsEditor::readText);
    fitHeight();
}

void PatternsEditor::setText(const QString &text)
{
    if (text == m_text)
        return;
    const QSignalBlocker blocker(this); // `edited` is for changes by the user
    m_text = text;
    clear();
    QTextCursor start = textCursor();
    document()->setUndoRedoEnabled(false);
    DocumentText::insert(start, text);
    document()->setUndoRedoEnabled(true);
    moveCursor(QTextCursor::Start);
    fitHeight();
}

bool PatternsEditor::isTouched() const
{
    const QTextCursor cursor = textCursor();
    return document()->isUndoAvailable() || document()->isRedoAvailable() || cursor.position() != 0 ||
           cursor.anchor() != 0 || verticalScrollBar()->value() != 0;
}

QSize PatternsEditor::sizeHint() const
{
    return {0, m_height};
}

// Shift and Return would insert a line separator, which looks like the end of a line but is not one.
void PatternsEditor::keyPressEvent(QKeyEvent *event)
{
    if (!event->matches(QKeySequence::InsertLineSeparator)) {
        QPlainTextEdit::keyPressEvent(event);
        return;
    }
    textCursor().insertBlock();
    ensureCursorVisible();
    event->accept();
}

// The toolkit moves the caret to a middle click before it asks for the text, even if there is none to paste.
void PatternsEditor::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::MiddleButton &&
        QGuiApplication::clipboard()->text(QClipboard::Selection).isEmpty()) {
        event->accept();
        return;
    }
    QPlainTextEdit::mouseReleaseEvent(event);
}

void PatternsEditor::changeEvent(QEvent *event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitHeight();
}

void PatternsEditor::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    fitHeight();
}

// The scroll bar of a plain-text editor counts lines, but QScroller counts points.
bool PatternsEditor::viewportEvent(QEvent *event)
{
    const int lineSpacing = QFontMetrics(font()).lineSpacing();
    QScrollBar &bar = *verticalScrollBar();
    if (event->type() == QEvent::ScrollPrepare) {
        auto &prepare = static_cast<QScrollPrepareEvent &>(*event);
        prepare.setViewportSize(viewport()->size());
        prepare.setContentPosRange(QRectF(0, 0, 0, bar.maximum() * lineSpacing));
        prepare.setContentPos(QPointF(0, bar.value() * lineSpacing));
        prepare.accept();
        return true;
    }
    if (event->type() == QEvent::Scroll) {
        bar.setValue(qRound(static_cast<QScrollEvent &>(*event).contentPos().y() / lineSpacing));
        return true;
    }
    return QPlainTextEdit::viewportEvent(event);
}

void PatternsEditor::insertFromMimeData(const QMimeData *source)
{
    const QString text = source->text();
    if (text.isEmpty())
        return; // a picture, for example: it must not delete the selection
    QTextCursor place = textCursor();
    DocumentText::insert(place, text);
    setTextCursor(place);
    ensureCursorVisible();
}

QMimeData *PatternsEditor::createMimeDataFromSelection() const
{
    auto copied = std::make_unique<QMimeData>();
    const QTextCursor selection = textCursor();
    copied->setText(DocumentText::text(*document(), selection.selectionStart(), selection.selectionEnd()));
    return copied.release();
}

void PatternsEditor::readText()
{
    fitHeight();
    QString text = DocumentText::text(*document());
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
