#include "HomeFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

QString testHome()
{
    return QString::fromUtf8(qgetenv("HOME"));
}

QString homePath(const QString &relativePath)
{
    return testHome() + u'/' + relativePath;
}

void putHomeFile(const QString &relativePath, const QByteArray &bytes)
{
    const QString path = homePath(relativePath);
    ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly | QFile::Truncate));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

std::optional<QByteArray> homeFile(const QString &relativePath)
{
    QFile file(homePath(relativePath));
    if (!file.open(QFile::ReadOnly))
        return std::nullopt;
    return file.readAll();
}
