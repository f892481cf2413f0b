#pragma once

#include "Platform/Desktop/Dialogs.h"

#include <QDBusConnection>
#include <QEventLoop>
#include <QObject>
#include <QVariantMap>

class QMainWindow;

/// The desktop's own folder dialog, which its portal service shows for any program that asks over D-Bus. The
/// toolkit asks the portal only with a platform theme plugin that has to be chosen, and doesn't tell a
/// missing portal from a cancelled dialog.
class DirectoryPortal : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        chosen,
        cancelled,
        unavailable, ///< no portal, an old one, or one that refuses or ends: ask another way
    };
    struct Answer {
        Outcome outcome = Outcome::cancelled;
        QString folder = {}; ///< where one was chosen
    };

    explicit DirectoryPortal(QDBusConnection bus);

    /// Asks, once, and waits for the answer; meanwhile the window's content, if there is a window, takes no
    /// input. Closing the window withdraws the question.
    Answer ask(const DirectoryQuestion &question, QMainWindow *window);

private:
    Q_SLOT void handleResponse(uint response, const QVariantMap &results);
    void askVersion();
    void openDialog();
    void listenTo(const QString &request);
    void fail();
    void closeDialog();
    void finish(const Answer &answer);

    QDBusConnection m_bus;
    DirectoryQuestion m_question;
    QString m_parentWindow;
    QString m_request; ///< the object path of the open request; empty when there is none
    QEventLoop m_eventLoop;
    std::optional<Answer> m_answer;
};
