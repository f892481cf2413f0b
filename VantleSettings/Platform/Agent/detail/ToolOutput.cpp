#include "Platform/Agent/detail/ToolOutput.h"

#include <QProcess>

std::optional<QByteArray> toolOutput(const QString &program, const QStringList &arguments)
{
    QProcess tool;
    tool.setStandardInputFile(QProcess::nullDevice());
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(program, arguments, QIODevice::ReadOnly);
    if (!tool.waitForStarted(-1))
        return std::nullopt;
    tool.waitForFinished(-1);
    return tool.readAllStandardOutput();
}
