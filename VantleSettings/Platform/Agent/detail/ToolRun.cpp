#include "Platform/Agent/detail/ToolRun.h"

#include <QCoreApplication>

#include <utility>

ToolRun::ToolRun(Ended ended) : QProcess(QCoreApplication::instance()), m_ended(std::move(ended))
{
    setStandardInputFile(nullDevice());
    setStandardErrorFile(nullDevice());
    connect(this, &QProcess::finished, this, [this] { finishRun(isReadable() ? readAll() : QByteArray()); });
    connect(this, &QProcess::errorOccurred, this, [this](ProcessError error) {
        if (error == FailedToStart)
            finishRun(std::nullopt);
    });
}

/// QProcess would kill a tool that it believes to be running.
ToolRun::~ToolRun()
{
    setProcessState(NotRunning);
}

ToolRun *ToolRun::reading(const QString &program, const QStringList &arguments, Ended ended)
{
    auto *run = new ToolRun(std::move(ended));
    run->start(program, arguments, ReadOnly);
    return run;
}

ToolRun *ToolRun::silent(const QString &program, const QStringList &arguments, Ended ended)
{
    auto *run = new ToolRun(std::move(ended));
    run->setStandardOutputFile(nullDevice());
    run->start(program, arguments, ReadOnly);
    return run;
}

void ToolRun::finishRun(const std::optional<QByteArray> &output)
{
    deleteLater();
    if (const auto ended = std::exchange(m_ended, nullptr))
        ended(output);
}
