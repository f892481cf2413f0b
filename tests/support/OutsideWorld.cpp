#include "OutsideWorld.h"

using namespace Qt::StringLiterals;

namespace
{

QString inHome(const QString &relativePath)
{
    return qEnvironmentVariable("HOME") + u'/' + relativePath;
}

} // namespace

void OutsideWorld::put(const QString &relativePath, const QByteArray &bytes)
{
    m_files.files[inHome(relativePath)] = bytes;
}

std::optional<QByteArray> OutsideWorld::file(const QString &relativePath) const
{
    const auto found = m_files.files.find(inHome(relativePath));
    return found == m_files.files.end() ? std::nullopt : std::optional(*found);
}

std::vector<std::string> OutsideWorld::takeRecord()
{
    return std::exchange(m_record, {});
}

std::vector<std::string> OutsideWorld::takeChanges()
{
    std::vector<std::string> changes;
    for (const std::string &entry : takeRecord()) {
        const std::string verb = entry.substr(0, entry.find(' '));
        if (verb == "write" || verb == "post")
            changes.push_back(verb);
    }
    return changes;
}

void OutsideWorld::note(const std::string &verb, const QString &object, const QByteArray &bytes)
{
    QString shown = object;
    const QString home = qEnvironmentVariable("HOME");
    if (shown.startsWith(home + u'/'))
        shown.replace(0, home.size(), u'~');
    auto entry = verb;
    if (!shown.isEmpty())
        entry.append(" ").append(shown.toStdString());
    if (!bytes.isEmpty())
        entry.append(" ").append(bytes.simplified().toStdString());
    m_record.push_back(entry);
}

std::optional<QByteArray> OutsideWorld::Files::read(const QString &path)
{
    world.note("read", path);
    const auto found = files.find(path);
    return found == files.end() ? std::nullopt : std::optional(*found);
}

bool OutsideWorld::Files::write(const QString &path, const QByteArray &bytes)
{
    world.note("write", path, bytes);
    if (!world.filesRefuse)
        files[path] = bytes;
    return !world.filesRefuse;
}

void OutsideWorld::Files::keepCopy(const QString &path, const QStringList &places)
{
    if (!files.contains(path))
        return;
    world.note("keep a copy of", path);
    files[places.first()] = files[path];
}

void OutsideWorld::Files::createDirectory(const QString &path)
{
    world.note("create directory", path);
}

void OutsideWorld::Files::remove(const QString &path)
{
    world.note("remove", path);
    files.remove(path);
}

bool OutsideWorld::Files::exists(const QString &path)
{
    world.note("exists", path);
    return files.contains(path);
}

bool OutsideWorld::Files::isDirectory(const QString &path)
{
    world.note("is directory", path);
    return false;
}

void OutsideWorld::answerForService()
{
    const auto work = m_owedAnswers.front();
    m_owedAnswers.pop_front();
    work();
}

void OutsideWorld::answer(std::function<void()> work)
{
    if (serviceIsSlow)
        m_owedAnswers.push_back(std::move(work));
    else
        work();
}

void OutsideWorld::Service::isLoaded(std::chrono::milliseconds, Answer answer)
{
    world.note("is the job loaded");
    world.answer([this, answer = std::move(answer)] { answer(world.serviceIsLoaded); });
}

void OutsideWorld::Service::load(Answer answer)
{
    world.note("load the job");
    world.answer([this, answer = std::move(answer)] {
        world.serviceIsLoaded |= !world.serviceRefuses;
        answer(world.serviceIsLoaded);
    });
}

void OutsideWorld::Service::unload(Answer answer)
{
    world.note("unload the job");
    world.answer([this, answer = std::move(answer)] {
        world.serviceIsLoaded &= world.serviceRefuses;
        answer(!world.serviceIsLoaded);
    });
}

void OutsideWorld::Service::finish(std::chrono::milliseconds)
{
    world.note("finish the job");
}

void OutsideWorld::Posts::post(const QUrl &url)
{
    world.note("post", url.toString());
}

void OutsideWorld::Posts::finish(std::chrono::milliseconds)
{
    world.note("finish the posts");
}
