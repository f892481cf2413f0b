#include "SampleData.h"

using namespace Qt::StringLiterals;

QByteArray sampleRegistry(int sessions, int directories)
{
    QByteArray bytes = "[\n";
    bytes.reserve(qsizetype{210} * sessions);
    for (int i = 0; i < sessions; ++i) {
        const QByteArray number = QByteArray::number(i);
        bytes += "  {\n    \"id\" : \"session-" + number +
                 "\",\n    \"agent\" : \"claude\",\n    \"title\" : \"Say \\\"hello\\\" to the world\",\n"
                 "    \"pid\" : " +
                 number + ",\n    \"cwd\" : \"\\/Users\\/someone\\/workspace\\/project-" +
                 QByteArray::number(i % directories) +
                 "\",\n    \"startedAt\" : 1760000000.25,\n    \"pinned\" : false\n  },\n";
    }
    bytes.chop(2);
    return bytes + "\n]";
}

QByteArray sampleManifest(int blocks)
{
    QByteArray bytes = "# The projects\n";
    for (int i = 0; i < blocks; ++i) {
        const QByteArray number = QByteArray::number(i);
        bytes += "\n[[projects]]\nname = \"Project " + number +
                 "\" # the number of it\npath = \"~/workspace/area/project-" + number +
                 "\"\ntodo_path = '~/workspace/area/project-" + number + "/TODO.toml'\n";
    }
    return bytes;
}

std::vector<Persistence::SessionDirectory> sampleSessions(int count)
{
    std::vector<Persistence::SessionDirectory> sessions;
    for (int i = 0; i < count; ++i) {
        const QString number = QString::number(i);
        switch (i % 4) {
        case 0:
            sessions.push_back({u"~/workspace/area/project-"_s + number, 1});
            break;
        case 1:
            sessions.push_back({u"/Users/someone/workspace/area/project-"_s + number + u"/src/"_s, 1});
            break;
        case 2:
            sessions.push_back({u"/Users/someone/workspace/./area/project-"_s + number, 1});
            break;
        default:
            sessions.push_back({u"/Users/someone/workspace/area/project-"_s + number + u"/src/lib"_s, 1});
            break;
        }
    }
    return sessions;
}

QStringList sampleProjects(int count)
{
    QStringList projects;
    for (int i = 0; i < count; ++i)
        projects.append(u"~/workspace/area/project-"_s + QString::number(i));
    return projects;
}
