#pragma once

#include "Platform/Desktop/Dialogs.h"

#include <QDBusConnection>
#include <QObject>
#include <QPointer>
#include <QVariantMap>

class QDialog;
class QWidget;

/// The desktop's own folder dialog, which its portal service shows for any program that asks over D-Bus.
class DirectoryPortal : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        chosen,
        cancelled,
        unavailable, ///< no portal, an old one, or one that can't show dialogs: ask another way
    };
    struct Answer {
        Outcome outcome = Outcome::cancelled;
        QString folder = {}; ///< where one was chosen
    };

    explicit DirectoryPortal(QDBusConnection bus);

    /// Asks, once, and waits for the answer; meanwhile the program's windows take no input.
    Answer ask(const DirectoryQuestion &question, QWidget *parent);

private:
    Q_SLOT void take(uint response, const QVariantMap &results);
    void askVersion();
    void openDialog();
    void listenTo(const QString &request);
    void closeDialog();
    void finish(const Answer &answer);

    QDBusConnection m_bus;
    DirectoryQuestion m_question;
    QString m_parentWindow;
    QString m_request;           ///< the object that stands for the question at the portal
    QPointer<QDialog> m_waiting; ///< never seen; it keeps input from the program's windows
    std::optional<Answer> m_answer;
};
