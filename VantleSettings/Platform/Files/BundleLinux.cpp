#include "Platform/Files/Bundle.h"

#include <QCoreApplication>

Bundle Bundle::main()
{
    return installedBundle(QCoreApplication::applicationFilePath());
}
