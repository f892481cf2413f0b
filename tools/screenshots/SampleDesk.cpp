#include "SampleDesk.h"

using namespace Qt::StringLiterals;

namespace
{

const auto sampleHome = u"/Users/sam"_s;

QString absolute(const QString &path)
{
    return path.startsWith(u'/') ? path : sampleHome + u'/' + path;
}

} // namespace

SampleDesk::SampleDesk() : m_home(qgetenv("HOME"))
{
    qputenv("HOME", sampleHome.toUtf8());
}

SampleDesk::~SampleDesk()
{
    qputenv("HOME", m_home);
}

void SampleDesk::put(const QString &path, const QByteArray &bytes)
{
    m_files.files[absolute(path)] = bytes;
}

void SampleDesk::putFolder(const QString &path)
{
    m_files.folders.insert(absolute(path));
}

std::optional<QByteArray> SampleDesk::Files::read(const QString &path)
{
    const auto file = files.constFind(path);
    return file == files.constEnd() ? std::nullopt : std::optional(*file);
}

bool SampleDesk::Files::write(const QString &path, const QByteArray &bytes)
{
    files[path] = bytes;
    return true;
}
