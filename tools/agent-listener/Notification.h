#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// One request as the agent would get it.
struct Notification {
    QByteArray method;
    QByteArray target;
    QByteArray body;

    /// Nothing where the bytes are no HTTP request.
    static std::optional<Notification> parse(const QByteArray &request);

    /// The file that the agent would now read again, below the home directory; nothing for the notifications
    /// that only ask for an action.
    std::optional<QString> announcedFile() const;

    /// What a person sees of it: the request, then the announced file with its present content.
    QString description() const;
};
