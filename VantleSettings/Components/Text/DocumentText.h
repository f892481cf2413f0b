#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

/// Converts between a text and an editor's document. The document has substitutes for the characters that it
/// would take for the end of a line, and a single character for each folded part, which would take too long
/// to lay out.
namespace DocumentText
{

/// Inserts a text at the cursor, replacing the selection.
void insert(QTextCursor &cursor, const QString &text);

/// The document's text, or its text between two positions, folded parts included.
QString text(const QTextDocument &document);
QString text(const QTextDocument &document, int from, int to);

/// The offset in the text of the character at this position in the document.
qsizetype offset(const QTextDocument &document, int position);

/// The position in the document of the character at this offset in the text, or of the fold that contains it.
int position(const QTextDocument &document, qsizetype offset);

} // namespace DocumentText
