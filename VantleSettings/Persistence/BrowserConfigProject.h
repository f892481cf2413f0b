#pragma once

#include <QString>
#include <QUuid>

/// One row of the browser-patterns page; not stored itself but mapped to and from the patterns file.
struct BrowserConfigProject {
    QUuid id = QUuid::createUuid();
    QString root;      ///< the project's directory, as the file or the registry spells it
    QString urls = {}; ///< its patterns, one per line

    bool operator==(const BrowserConfigProject &) const = default;
};
