#include "Platform/Window/detail/ProgramLock.h"

#include "Platform/Files/Path.h"
#include "Platform/Window/detail/HomeMark.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLockFile>
#include <QSocketNotifier>
#include <QThread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int answerLimit = 2000; // ms
constexpr int pollInterval = 20;  // ms

// This signal asks the program that holds the lock to reopen its window. Few functions are allowed in its
// handler: it writes into this pipe, and the event loop reads from it.
constexpr int requestSignal = SIGUSR1;
std::array<int, 2> requestPipe{-1, -1};

void noteRequest(int)
{
    const int saved = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(requestPipe[1], &byte, 1);
    errno = saved;
}

bool catchRequests()
{
    if (::pipe2(requestPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return false;
    struct sigaction action = {};
    action.sa_handler = noteRequest;
    action.sa_flags = SA_RESTART;
    return ::sigaction(requestSignal, &action, nullptr) == 0;
}

/// Answers each request by setting the modification time of the lock file to now.
void answerRequests(const QByteArray &lockFile, std::function<void()> reopen)
{
    auto *notifier = new QSocketNotifier(requestPipe[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [lockFile, reopen = std::move(reopen)] {
        std::array<char, 16> bytes{};
        while (::read(requestPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        reopen();
        ::utimensat(AT_FDCWD, lockFile.constData(), nullptr, 0);
    });
}

std::pair<time_t, long> timeOf(const QByteArray &file)
{
    struct stat status = {};
    ::stat(file.constData(), &status);
    return {status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

/// Asks the process with this id to reopen its window. Returns whether it has answered in time.
bool hasReopened(qint64 process, const QByteArray &lockFile)
{
    const auto before = timeOf(lockFile);
    if (::kill(pid_t(process), requestSignal) != 0)
        return false;
    const QDeadlineTimer deadline(answerLimit);
    while (!deadline.hasExpired()) {
        if (timeOf(lockFile) != before)
            return true;
        QThread::msleep(pollInterval);
    }
    return false;
}

} // namespace

bool takeProgramLock(std::function<void()> reopen)
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!folder.startsWith(u'/') || !catchRequests()) // caught before others can see the lock and ask
        return true;
    const QString path = Path::appending(folder, u"vantle-settings-"_s + homeMark() + u".lock"_s);
    static std::unique_ptr<QLockFile> lock; // until the process ends
    lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0); // however old: a lock counts as long as its process runs
    if (lock->tryLock(0)) {
        answerRequests(QFile::encodeName(path), std::move(reopen));
        return true;
    }
    qint64 holder = 0;
    QString host;
    QString program;
    const bool known = lock->getLockInfo(&holder, &host, &program) && holder > 0;
    return !known || !hasReopened(holder, QFile::encodeName(path));
}
