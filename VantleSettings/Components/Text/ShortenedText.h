#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// The parts of a too long text that are shown: the lengths of its beginning and its end, in UTF-16 code
/// units.
struct TextEnds {
    qsizetype head = 0;
    qsizetype tail = 0;
};

/// The two ends to show of a text that would take longer to lay out than `limit` letters; nothing for any
/// other text. Both ends are whole graphemes, except where a single one is too long itself. The work depends
/// on the limit only, however long the text is.
std::optional<TextEnds> textEnds(QStringView text, qsizetype limit);

/// The text, or its two ends with "…" between them.
QString shortened(const QString &text, qsizetype limit);
