#include "Platform/Window/QuitSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace
{

// Few functions are allowed in a signal handler: it writes into this pipe, and the event loop reads from it.
std::array<int, 2> wakePipe{-1, -1};

void wakeEventLoop(int)
{
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(wakePipe[1], &byte, 1);
    errno = saved;
}

} // namespace

void onQuitSignal(std::function<void()> quit)
{
    if (pipe(wakePipe.data()) != 0)
        return;
    for (const int end : wakePipe) {
        fcntl(end, F_SETFD, FD_CLOEXEC);
        fcntl(end, F_SETFL, O_NONBLOCK);
    }
    auto *notifier = new QSocketNotifier(wakePipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [quit = std::move(quit)] {
        std::array<char, 16> bytes{};
        while (read(wakePipe[0], bytes.data(), bytes.size()) > 0) {
        }
        quit();
    });
    struct sigaction action = {};
    action.sa_handler = wakeEventLoop;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        if (signal == SIGTERM || before.sa_handler != SIG_IGN) // nohup and shells set them to be ignored
            sigaction(signal, &action, nullptr);
    }
}
