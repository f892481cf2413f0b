#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

/// A text in an editor's document, which holds other characters where it would take the text's own for the
/// end of a line, and one character in the place of each part that would take too long to lay out: there the
/// text is folded.
namespace DocumentText
{

/// Puts a text at the cursor, in the place of what is selected.
void insert(QTextCursor &cursor, const QString &text);

/// The document's text, or that between two positions, with what is folded there.
QString text(const QTextDocument &document);
QString text(const QTextDocument &document, int from, int to);

/// Where in the text the character is that has this position in the document.
qsizetype offset(const QTextDocument &document, int position);

/// Where in the document that character of the text is, or the fold in which it lies.
int position(const QTextDocument &document, qsizetype offset);

} // namespace DocumentText
