#pragma once

#include "Persistence/SessionRegistry.h"

#include <QByteArray>
#include <QStringList>

/// A session registry in the agent's form, about 200 bytes a session, in so many directories.
QByteArray sampleRegistry(int sessions, int directories);

/// A manifest of so many blocks, in ASCII, of the kind people write.
QByteArray sampleManifest(int blocks);

/// Directories, each with one session; and paths of projects, most of them above some of those.
std::vector<Persistence::SessionDirectory> sampleSessions(int count);
QStringList sampleProjects(int count);
