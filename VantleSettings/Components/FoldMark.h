#pragma once

#include <QObject>
#include <QTextFormat>
#include <QTextObjectInterface>

#include <optional>

class QTextDocument;

/// The one character that stands in a document for a part of its text that is folded, drawn as "…".
class FoldMark : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    static constexpr QChar character = QChar::ObjectReplacementCharacter;

    /// The format that makes the character stand for this text in this document.
    static QTextCharFormat format(QTextDocument &document, const QString &folded);

    /// The text that the character at this position stands for; nothing where it is the text's own.
    static std::optional<QString> foldedText(const QTextDocument &document, int position);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &box, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    using QObject::QObject;
};
