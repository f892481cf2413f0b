#include "Platform/Files/PathSpelling.h"

QString systemSpelling(const QString &path)
{
    return path;
}
