#pragma once

#include <QObject>
#include <QTextFormat>
#include <QTextObjectInterface>

#include <optional>

class QTextDocument;

/// The character that represents a folded part of a document's text, drawn as "…".
class FoldMark : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    static constexpr QChar character = QChar::ObjectReplacementCharacter;

    /// The format that makes the character represent this text in this document.
    static QTextCharFormat format(QTextDocument &document, const QString &folded);

    /// The text that the character at this position represents; nothing where it is an ordinary character.
    static std::optional<QString> foldedText(const QTextDocument &document, int position);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &box, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    using QObject::QObject;
};
