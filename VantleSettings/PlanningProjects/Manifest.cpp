#include "PlanningProjects/Manifest.h"

#include "Foundation/Text.h"
#include "PlanningProjects/CharacterBreaks.h"

#include <algorithm>

namespace
{

bool isCharacter(QStringView text, qsizetype index, char16_t character)
{
    return text[index] == character && PlanningProjects::standsAlone(text, index);
}

bool beginsWith(QStringView text, char16_t character)
{
    return !text.isEmpty() && isCharacter(text, 0, character);
}

bool isQuoted(QStringView value, char16_t quote)
{
    return value.size() >= 2 && isCharacter(value, 0, quote) && isCharacter(value, value.size() - 1, quote);
}

} // namespace

std::optional<qsizetype> PlanningProjects::firstUnquotedHash(QStringView value)
{
    char16_t openQuote = 0;
    for (qsizetype index = 0; index < value.size(); ++index) {
        const char16_t unit = value[index].unicode();
        const bool matters = openQuote ? unit == openQuote : unit == u'"' || unit == u'\'' || unit == u'#';
        if (!matters || !standsAlone(value, index))
            continue;
        if (unit == u'#')
            return index;
        openQuote = openQuote ? 0 : unit;
    }
    return std::nullopt;
}

std::optional<std::pair<QStringView, QStringView>> PlanningProjects::parseKeyValue(QStringView line)
{
    qsizetype equals = line.indexOf(u'=');
    while (equals >= 0 && !standsAlone(line, equals))
        equals = line.indexOf(u'=', equals + 1);
    if (equals < 0)
        return std::nullopt;
    QStringView value = Text::trimmed(line.sliced(equals + 1));
    if (const auto comment = firstUnquotedHash(value))
        value = Text::trimmed(value.first(*comment));
    if (isQuoted(value, u'"') || isQuoted(value, u'\''))
        value = value.sliced(1).chopped(1);
    return std::pair(Text::trimmed(line.first(equals)), value);
}

std::vector<PlanningProjects::Table> PlanningProjects::parseProjectsTOML(QStringView text)
{
    std::vector<Table> tables;
    bool isInBlock = false;
    const auto readLine = [&](QStringView line) {
        if (line.isEmpty() || beginsWith(line, u'#'))
            return;
        if (line == u"[[projects]]") {
            tables.emplace_back();
            isInBlock = true;
        } else if (beginsWith(line, u'[')) {
            isInBlock = false;
        } else if (isInBlock) {
            if (const auto assignment = parseKeyValue(line))
                tables.back().insert_or_assign(Text::composed(assignment->first.toString()),
                                               assignment->second);
        }
    };
    for (const QChar *start = text.begin(); start != text.end();) {
        const QChar *const end = std::find_if(start, text.end(), Text::isLineBreak);
        readLine(Text::trimmed(QStringView(start, end)));
        start = end == text.end() ? end : end + 1;
    }
    return tables;
}
