#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// How much of a text is shown where it is too long: so many units of its beginning and of its end.
struct TextEnds {
    qsizetype head = 0;
    qsizetype tail = 0;
};

/// The two ends of a text that would take longer to lay out than so many letters; nothing for any other text.
/// Both ends are whole graphemes, but for a single one that is too long itself. However long the text is, the
/// work grows with the limit only.
std::optional<TextEnds> textEnds(QStringView text, qsizetype limit);

/// The text, or its two ends with "…" between them.
QString shortened(const QString &text, qsizetype limit);
