#pragma once

#include <QString>

/// What other programs do with files for the user. Both calls return at once; failures are not reported.
class Workspace
{
public:
    virtual ~Workspace() = default;
    Q_DISABLE_COPY_MOVE(Workspace)

    /// Shows the file or folder at this path, selected, in the file manager.
    virtual void reveal(const QString &path) = 0;

    /// Opens the file at this path with its default application.
    virtual void open(const QString &path) = 0;

    static Workspace &system();

protected:
    Workspace() = default;
};
