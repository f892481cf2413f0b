#include "Platform/Window/detail/HomeMark.h"

#include "Platform/Files/Home.h"

#include <QCryptographicHash>

QString homeMark()
{
    const QByteArray home = homeDirectory().value_or(QString()).toUtf8();
    return QLatin1String(QCryptographicHash::hash(home, QCryptographicHash::Sha1).toHex().first(16));
}
