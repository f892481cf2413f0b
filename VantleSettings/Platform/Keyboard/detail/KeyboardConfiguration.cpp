#include "Platform/Keyboard/detail/KeyboardConfiguration.h"

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{

/// The value that the pattern's first group finds in a line of its own; empty where there is none.
QByteArray value(const QString &text, const QString &pattern)
{
    const QRegularExpression line(u"^[ \\t]*"_s + pattern + u"[ \\t]*(?:#.*)?$"_s,
                                  QRegularExpression::MultilineOption);
    return line.match(text).captured(1).toUtf8();
}

/// A line of a shell's assignments: XKBLAYOUT="de,us".
QByteArray assigned(const QString &text, const QString &name)
{
    return value(text, name + u"=[\"']?([^\"'#\\n]*?)[\"']?"_s);
}

/// A line of the X server's configuration: Option "XkbLayout" "de,us".
QByteArray option(const QString &text, const QString &name)
{
    return value(text, u"Option[ \\t]+\"%1\"[ \\t]+\"([^\"\\n]*)\""_s.arg(name));
}

std::optional<XkbKeymap::Names> fromAssignments(const QString &text)
{
    const XkbKeymap::Names names{assigned(text, u"XKBMODEL"_s), assigned(text, u"XKBLAYOUT"_s),
                                 assigned(text, u"XKBVARIANT"_s), assigned(text, u"XKBOPTIONS"_s)};
    return names.layout.isEmpty() ? std::nullopt : std::optional(names);
}

std::optional<XkbKeymap::Names> fromOptions(const QString &text)
{
    const XkbKeymap::Names names{option(text, u"XkbModel"_s), option(text, u"XkbLayout"_s),
                                 option(text, u"XkbVariant"_s), option(text, u"XkbOptions"_s)};
    return names.layout.isEmpty() ? std::nullopt : std::optional(names);
}

QString contents(const QString &path)
{
    return QString::fromUtf8(Seam<FileSystem>::current().read(path).value_or(QByteArray()));
}

} // namespace

std::optional<XkbKeymap::Names> configuredKeyboard()
{
    if (auto names = fromAssignments(contents(u"/etc/default/keyboard"_s)))
        return names;
    if (auto names = fromOptions(contents(u"/etc/X11/xorg.conf.d/00-keyboard.conf"_s)))
        return names;
    return fromAssignments(contents(u"/etc/vconsole.conf"_s));
}
