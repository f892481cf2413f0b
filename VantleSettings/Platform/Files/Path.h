#pragma once

#include <QString>
#include <QStringView>

/// Paths as texts, spelled by the rules of the agent's platform. Runs of slashes count as one everywhere, and
/// a slash at the end doesn't count; links are not resolved.
namespace Path
{

/// The name at the end: `/` for the root, empty for the empty path.
QStringView lastComponent(QStringView path);

/// The path without its last component: `/` above a folder of the root, empty above a single name.
QString parent(const QString &path);

/// `path/component` with exactly one slash between; an absolute component does not replace the path.
QString appending(const QString &path, const QString &component);

/// `~` and `~/…` become the current user's home, `~name/…` that user's; an unknown name stays.
QString expandingTilde(const QString &path);

/// One spelling for a directory: tilde expanded, `.` removed, `..` resolved, and the system's own shorter
/// spelling where it has one. A relative path stays relative.
QString standardizing(const QString &path);

/// macOS has `/tmp`, `/var` and `/etc` as links into `/private`: drops that leading component where the rest
/// exists and doesn't begin with a directory that is really at the root, e.g. `/usr`.
QString withoutPrivate(const QString &path);

} // namespace Path
