#include "Platform/PathSpelling.h"

QString systemSpelling(const QString &path)
{
    return path;
}
