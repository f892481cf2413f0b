// Stands where the agent would and prints each notification with its time and the file that it announces.

#include "Listener.h"
#include "Notification.h"

#include <QDateTime>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

constexpr quint16 controlPort = 18484;

void say(const QString &line, std::FILE *where = stdout)
{
    std::fputs((line + u'\n').toUtf8().constData(), where);
    std::fflush(where);
}

void show(const QByteArray &request)
{
    const QString time = QDateTime::currentDateTime().toString(u"HH:mm:ss.zzz"_s);
    const auto notification = Notification::parse(request);
    say(time + u"  "_s +
        (notification ? notification->description() : u"%1 bytes that are no request"_s.arg(request.size())));
}

} // namespace

int main()
{
    listenOnLoopback(
        controlPort,
        [] { say(u"Listening on 127.0.0.1:%1 in the agent's place. Ctrl-C ends it."_s.arg(controlPort)); },
        show);
    say(u"Something listens on 127.0.0.1:%1 already; is the agent running?"_s.arg(controlPort), stderr);
    return 1;
}
