#include "Platform/Files/PathSpelling.h"

#include "Platform/Files/Path.h"

QString systemSpelling(const QString &path) { return Path::withoutPrivate(path); }
