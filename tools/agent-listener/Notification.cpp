#include "Notification.h"

#include "Persistence/SharedFiles.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr auto indentation = "              "_L1; // as wide as the time in front of the first line

/// Text from elsewhere, without what could steer a terminal.
QString printable(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes);
    for (QChar &character : text) {
        if (character.category() == QChar::Other_Control && character != u'\n')
            character = QChar::ReplacementCharacter;
    }
    return text;
}

QString indented(const QString &text)
{
    return u'\n' + indentation + QString(text).replace(u'\n', u'\n' + indentation);
}

} // namespace

std::optional<Notification> Notification::parse(const QByteArray &request)
{
    const auto headEnd = request.indexOf("\r\n\r\n");
    const auto words = request.left(request.indexOf("\r\n")).split(' ');
    if (headEnd < 0 || words.size() != 3 || !words[2].startsWith("HTTP/1."))
        return std::nullopt;
    return Notification{words[0], words[1], request.mid(headEnd + 4)};
}

std::optional<QString> Notification::announcedFile() const
{
    using namespace SharedFiles;
    for (const SharedFile *file : {&typeface, &terminalBackend, &greenScreen, &shortcuts, &planning}) {
        if (file->reload.toUtf8() == target)
            return file->path;
    }
    return std::nullopt;
}

QString Notification::description() const
{
    QString text = printable(method + ' ' + target + ' ' + body);
    const auto file = announcedFile();
    const auto home = homeDirectory();
    if (!file || !home)
        return text;
    const auto content = FileSystem::system().read(Path::appending(*home, *file));
    return text + indented(u"~/"_s + *file + (content ? u":"_s : u" is not there"_s)) +
           (content ? indented(printable(*content)) : QString());
}
