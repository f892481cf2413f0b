#pragma once

#include <QByteArray>
#include <QProcess>

#include <functional>
#include <optional>

/// A run of one of the system's tools, without blocking: with exactly these arguments and no shell in
/// between, an empty standard input, and its standard error dropped. The object deletes itself once the tool
/// has ended. If the program ends first, the tool runs on.
class ToolRun final : public QProcess
{
    Q_OBJECT

public:
    /// What the tool wrote to its standard output, of any size; nothing when it could not be started. Its
    /// exit status doesn't matter.
    using Ended = std::function<void(const std::optional<QByteArray> &output)>;

    /// For a tool whose output is read.
    static ToolRun *reading(const QString &program, const QStringList &arguments, Ended ended);

    /// For a tool that is run for its effect: `ended` gets no output. Writing to its standard output doesn't
    /// fail even after this program has ended.
    static ToolRun *silent(const QString &program, const QStringList &arguments, Ended ended);

    ~ToolRun() override;

private:
    explicit ToolRun(Ended ended);
    void finishRun(const std::optional<QByteArray> &output);

    Ended m_ended;
};
