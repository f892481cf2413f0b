#include "ChildProcess.h"
#include "HomeFiles.h"
#include "Persistence/SessionRegistry.h"
#include "Rounds.h"

#include <QByteArrayList>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

constexpr int maximumSessions = 7;

/// The registry's nth state: sessions in the directories /n/count/0, /n/count/1 and so on.
QByteArray state(int n)
{
    const int sessions = 1 + n % maximumSessions;
    QByteArrayList elements;
    for (int i = 0; i < sessions; ++i)
        elements.append(QStringLiteral("{\"cwd\":\"/%1/%2/%3\"}").arg(n).arg(sessions).arg(i).toUtf8());
    return '[' + elements.join(',') + ']';
}

void overwrite(const QByteArray &path, const QByteArray &bytes)
{
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (file < 0 || ::write(file, bytes.constData(), std::size_t(bytes.size())) != bytes.size() ||
        ::close(file) != 0)
        ::_exit(1);
}

/// A process that calls work(1), work(2) and so on until this object is destroyed.
class RepeatedWork
{
public:
    template <class Work>
    explicit RepeatedWork(Work work) : m_process(::fork())
    {
        if (m_process < 0)
            qFatal("no process can be started");
        if (m_process > 0)
            return;
        for (int n = 1;; ++n)
            work(n);
    }

    ~RepeatedWork()
    {
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
    }

    Q_DISABLE_COPY_MOVE(RepeatedWork)

    bool isRunning() const
    {
        siginfo_t ended{};
        // The process stays waitable, so that its id is not given to another one.
        return ::waitid(P_PID, id_t(m_process), &ended, WEXITED | WNOHANG | WNOWAIT) == 0 &&
               ended.si_pid == 0;
    }

private:
    pid_t m_process;
};

TEST(RegistryStorm, ARegistryReplacedByRenameIsAlwaysReadWhole)
{
    putHomeFile(u".vantle/sessions.json"_s, state(0));
    const QByteArray registry = homePath(u".vantle/sessions.json"_s).toUtf8();
    const RepeatedWork writer([&](int n) {
        overwrite(registry + ".new", state(n));
        std::rename((registry + ".new").constData(), registry.constData());
    });
    QStringList seen;
    // The other process may not have been scheduled yet.
    const auto fewStatesSeen = [&seen] { return seen.size() <= 2; };
    for (int round = 0; round < rounds(1000, 50000) || (fewStatesSeen() && writer.isRunning()); ++round) {
        const auto count = Persistence::sessionsCount();
        ASSERT_GE(count, 1);
        ASSERT_LE(count, maximumSessions);
        const QStringList projects = Persistence::knownProjects();
        ASSERT_FALSE(projects.isEmpty());
        const QString first = projects.front().section(u'/', 1, 2);
        ASSERT_EQ(projects.size(), first.section(u'/', 1, 1).toInt());
        for (qsizetype i = 0; i < projects.size(); ++i)
            ASSERT_EQ(projects[i], u'/' + first + u'/' + QString::number(i));
        if (seen.isEmpty() || seen.back() != first)
            seen.append(first);
    }
    EXPECT_TRUE(writer.isRunning());
    EXPECT_FALSE(fewStatesSeen());
}

TEST(RegistryStorm, ARegistryRewrittenInPlaceNeverGivesTooManySessions)
{
    putHomeFile(u".vantle/sessions.json"_s, state(0));
    const QByteArray registry = homePath(u".vantle/sessions.json"_s).toUtf8();
    const RepeatedWork writer([&](int n) { overwrite(registry, state(n)); });
    for (int round = 0; round < rounds(1000, 50000); ++round) {
        ASSERT_LE(Persistence::sessionsCount(), maximumSessions);
        ASSERT_LE(Persistence::knownProjects().size(), maximumSessions);
    }
    EXPECT_TRUE(writer.isRunning());
}

TEST(RegistryStorm, EachReadSeesTheRegistryOfItsTime)
{
    putHomeFile(u".vantle/sessions.json"_s, R"([{"cwd":"/a"},{"cwd":"/b"}])");
    EXPECT_EQ(Persistence::sessionsCount(), 2);
    putHomeFile(u".vantle/sessions.json"_s, R"([{"cwd":"/c"}])");
    EXPECT_EQ(Persistence::knownProjects(), QStringList{u"/c"_s});
}

} // namespace
