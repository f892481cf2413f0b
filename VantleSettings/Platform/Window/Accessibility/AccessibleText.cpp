#include "Platform/Window/Accessibility/AccessibleText.h"

namespace
{

// A message of D-Bus carries at most 128 MiB. One message may hold a name and a description, of which each
// unit takes three bytes at most.
constexpr qsizetype longest = qsizetype{16} << 20;

} // namespace

QString accessibleText(const QString &text)
{
    if (text.size() <= longest)
        return text;
    const qsizetype end = text[longest - 1].isHighSurrogate() ? longest - 1 : longest;
    return text.first(end) + QChar(0x2026);
}
