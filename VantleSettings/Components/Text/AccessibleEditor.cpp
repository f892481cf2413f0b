#include "Components/Text/AccessibleEditor.h"

#include "Components/Text/DocumentText.h"
#include "Components/Text/PatternsEditor.h"
#include "Platform/Window/Accessibility/AccessibleText.h"

#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace
{

/// Selects the unit (word, line, …) that contains a position.
QTextCursor unitAt(QTextCursor cursor, int position, QAccessible::TextBoundaryType unit)
{
    cursor.setPosition(position);
    const auto [start, end] = QAccessible::qAccessibleTextBoundaryHelper(cursor, unit);
    cursor.setPosition(start);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    return cursor;
}

} // namespace

AccessibleEditor::AccessibleEditor(PatternsEditor *editor)
    : AccessibleWidget(editor, QAccessible::EditableText)
{
}

void *AccessibleEditor::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return AccessibleWidget::interface_cast(type);
}

QString AccessibleEditor::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? accessibleText(editor().text()) : AccessibleWidget::text(kind);
}

QAccessible::State AccessibleEditor::state() const
{
    QAccessible::State state = AccessibleWidget::state();
    state.editable = true;
    state.selectableText = true;
    state.multiLine = true;
    return state;
}

void AccessibleEditor::selection(int index, int *start, int *end) const
{
    const QTextCursor selected = editor().textCursor();
    const bool exists = index == 0 && selected.hasSelection();
    *start = exists ? offset(selected.selectionStart()) : 0;
    *end = exists ? offset(selected.selectionEnd()) : 0;
}

int AccessibleEditor::selectionCount() const
{
    return editor().textCursor().hasSelection() ? 1 : 0;
}

void AccessibleEditor::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void AccessibleEditor::removeSelection(int index)
{
    if (index == 0)
        setCursorPosition(cursorPosition());
}

void AccessibleEditor::setSelection(int index, int start, int end)
{
    if (index == 0)
        editor().setTextCursor(cursor(start, end));
}

int AccessibleEditor::cursorPosition() const
{
    return offset(editor().textCursor().position());
}

void AccessibleEditor::setCursorPosition(int offset)
{
    editor().setTextCursor(cursor(offset, offset));
}

QString AccessibleEditor::text(int start, int end) const
{
    const QString &whole = editor().text();
    const auto from = std::clamp<qsizetype>(start, 0, whole.size());
    return accessibleText(whole.sliced(from, std::clamp<qsizetype>(end, from, whole.size()) - from));
}

QString AccessibleEditor::textBeforeOffset(int offset, QAccessible::TextBoundaryType unit, int *start,
                                           int *end) const
{
    const QTextCursor present = unitAt(editor().textCursor(), cursor(offset, offset).position(), unit);
    if (present.selectionStart() == 0)
        return part(cursor(0, 0), start, end);
    return part(unitAt(present, present.selectionStart() - 1, unit), start, end);
}

QString AccessibleEditor::textAfterOffset(int offset, QAccessible::TextBoundaryType unit, int *start,
                                          int *end) const
{
    const QTextCursor present = unitAt(editor().textCursor(), cursor(offset, offset).position(), unit);
    QTextCursor next = unitAt(present, present.selectionEnd(), unit);
    if (next.selectionEnd() == present.selectionEnd() && !next.atEnd())
        next = unitAt(present, present.selectionEnd() + 1, unit); // a line feed is between them
    return part(next, start, end);
}

QString AccessibleEditor::textAtOffset(int offset, QAccessible::TextBoundaryType unit, int *start,
                                       int *end) const
{
    const QTextCursor found = unitAt(editor().textCursor(), cursor(offset, offset).position(), unit);
    QString whole = part(found, start, end);
    const bool isInFold = whole.size() > found.selectedText().size();
    if (unit != QAccessible::CharBoundary || !isInFold)
        return whole;
    *start = offset;
    *end = offset + 1;
    return text(*start, *end);
}

int AccessibleEditor::characterCount() const
{
    return int(editor().text().size());
}

QRect AccessibleEditor::characterRect(int offset) const
{
    QTextCursor character = cursor(offset, offset);
    const QRect before = editor().cursorRect(character);
    QRect box = before;
    if (character.movePosition(QTextCursor::NextCharacter)) {
        const QRect after = editor().cursorRect(character);
        if (after.top() == before.top())
            box.setRight(std::max(before.right(), after.left()));
    }
    return box.translated(editor().viewport()->mapToGlobal(QPoint()));
}

int AccessibleEditor::offsetAtPoint(const QPoint &point) const
{
    const QWidget &viewport = *editor().viewport();
    const QPoint inside = viewport.mapFromGlobal(point);
    return viewport.rect().contains(inside) ? offset(editor().cursorForPosition(inside).position()) : -1;
}

void AccessibleEditor::scrollToSubstring(int start, int end)
{
    const QTextCursor first = cursor(start, end);
    const QTextBlock block = editor().document()->findBlock(first.anchor());
    if (editor().viewport()->rect().contains(editor().cursorRect(first)))
        return;
    const QTextLine line = block.layout()->lineForTextPosition(first.anchor() - block.position());
    editor().verticalScrollBar()->setValue(block.firstLineNumber() + line.lineNumber());
}

QString AccessibleEditor::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

void AccessibleEditor::deleteText(int start, int end)
{
    replaceText(start, end, {});
}

void AccessibleEditor::insertText(int offset, const QString &text)
{
    replaceText(offset, offset, text);
}

void AccessibleEditor::replaceText(int start, int end, const QString &text)
{
    QTextCursor replaced = cursor(start, end);
    DocumentText::insert(replaced, text);
}

PatternsEditor &AccessibleEditor::editor() const
{
    return *static_cast<PatternsEditor *>(widget());
}

/// Selects the text from one offset to another.
QTextCursor AccessibleEditor::cursor(int start, int end) const
{
    QTextCursor cursor = editor().textCursor();
    cursor.setPosition(DocumentText::position(*cursor.document(), start));
    cursor.setPosition(DocumentText::position(*cursor.document(), end), QTextCursor::KeepAnchor);
    return cursor;
}

int AccessibleEditor::offset(int position) const
{
    return int(DocumentText::offset(*editor().document(), position));
}

/// The text of a selected part of the document; sets the offsets of its start and end.
QString AccessibleEditor::part(const QTextCursor &part, int *start, int *end) const
{
    *start = offset(part.selectionStart());
    *end = offset(part.selectionEnd());
    return text(*start, *end);
}
