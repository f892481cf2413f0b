#pragma once

#include "Foundation/Text.h"
#include "GraphemeBreakTable.h"
#include "PlanningProjects/Manifest.h"

#include <QStringList>

/// A slow reader of manifests that follows their definition, with a string for each character. The program's
/// reader is compared with it.
namespace StraightforwardManifest
{

/// Whether the scalar joins the one before it, by the table. Where the toolkit's version of Unicode is newer
/// than the table or older, the toolkit decides: the program depends on its data.
inline bool joinsWhatPrecedesIt(char32_t scalar)
{
    const int version = QChar::unicodeVersion(scalar);
    constexpr int versionOfTheData = QChar::Unicode_14_0 + 1;
    if (version > versionOfTheData)
        return QChar::isMark(scalar);
    return version != QChar::Unicode_Unassigned &&
           GraphemeBreakTable::contains(GraphemeBreakTable::joinsWhatPrecedesIt, scalar);
}

/// The text in characters, as far as ASCII signs need it: a sign has a piece of its own unless a scalar joins
/// it. Scalars that join in other ways, like the parts of a flag, never join such a sign and may be apart.
inline QStringList characters(const QString &text)
{
    QStringList characters;
    bool isJoined = false; // the next scalar, to the one before it
    for (const char32_t scalar : text.toUcs4()) {
        if (characters.isEmpty() || !(isJoined || joinsWhatPrecedesIt(scalar)))
            characters.emplace_back();
        characters.back() += QChar::fromUcs4(scalar);
        isJoined = GraphemeBreakTable::contains(GraphemeBreakTable::joinsWhatFollowsIt, scalar);
    }
    return characters;
}

inline QString trimmed(const QString &text)
{
    return Text::trimmed(text).toString();
}

/// The value without its comment.
inline QString withoutComment(const QString &value)
{
    QString kept;
    QString openQuote;
    for (const QString &character : characters(value)) {
        if (openQuote.isEmpty() && character == QStringLiteral("#"))
            return trimmed(kept);
        if (openQuote.isEmpty() && (character == QStringLiteral("\"") || character == QStringLiteral("'")))
            openQuote = character;
        else if (character == openQuote)
            openQuote.clear();
        kept += character;
    }
    return value;
}

inline QString unquoted(const QString &value)
{
    QStringList all = characters(value);
    if (all.size() < 2 || all.front() != all.back())
        return value;
    if (all.front() != QStringLiteral("\"") && all.front() != QStringLiteral("'"))
        return value;
    return all.mid(1, all.size() - 2).join(QString());
}

inline std::vector<std::map<QString, QString>> blocks(QString text)
{
    for (QChar &unit : text) {
        if (Text::isLineBreak(unit))
            unit = u'\n';
    }
    std::vector<std::map<QString, QString>> blocks;
    bool isInBlock = false;
    for (const QString &piece : text.split(u'\n')) {
        const QString line = trimmed(piece);
        const QStringList all = characters(line);
        if (all.isEmpty() || all.front() == QStringLiteral("#"))
            continue;
        const auto equals = all.indexOf(QStringLiteral("="));
        if (line == QStringLiteral("[[projects]]")) {
            blocks.emplace_back();
            isInBlock = true;
        } else if (all.front() == QStringLiteral("[")) {
            isInBlock = false;
        } else if (isInBlock && equals >= 0) {
            const QString key = trimmed(all.first(equals).join(QString()));
            const QString value = trimmed(all.sliced(equals + 1).join(QString()));
            blocks.back()[Text::composed(key)] = unquoted(withoutComment(value));
        }
    }
    return blocks;
}

/// The blocks as the program's reader gives them, in the same form as blocks().
inline std::vector<std::map<QString, QString>> programsBlocks(const QString &text)
{
    std::vector<std::map<QString, QString>> blocks;
    for (const auto &table : PlanningProjects::parseProjectsTOML(text)) {
        blocks.emplace_back();
        for (const auto &[key, value] : table)
            blocks.back()[key] = value.toString();
    }
    return blocks;
}

} // namespace StraightforwardManifest
