#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

/// Converts between a text and an editor's document. The document holds stand-ins for the characters that
/// it would take for the end of a line, and one character for each part that would take too long to lay out:
/// that part is folded.
namespace DocumentText
{

/// Inserts a text at the cursor, replacing the selection.
void insert(QTextCursor &cursor, const QString &text);

/// The document's text, or that between two positions, folded parts included.
QString text(const QTextDocument &document);
QString text(const QTextDocument &document, int from, int to);

/// Where in the text the character is that has this position in the document.
qsizetype offset(const QTextDocument &document, int position);

/// Where in the document that character of the text is, or the fold in which it lies.
int position(const QTextDocument &document, qsizetype offset);

} // namespace DocumentText
