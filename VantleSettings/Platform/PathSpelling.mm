#include "Platform/PathSpelling.h"

#include "Platform/Path.h"

QString systemSpelling(const QString &path) { return Path::withoutPrivate(path); }
