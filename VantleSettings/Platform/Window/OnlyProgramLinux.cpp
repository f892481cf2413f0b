#include "Platform/Agent/SessionBus.h"
#include "Platform/Window/OnlyProgram.h"
#include "Platform/Window/detail/ApplicationService.h"
#include "Platform/Window/detail/ProgramLock.h"
#include "Platform/Window/detail/WindowActivation.h"

#include <QApplication>
#include <QDBusConnection>
#include <QMainWindow>
#include <QPointer>

namespace
{

constexpr auto startupIdVariable = "DESKTOP_STARTUP_ID";
constexpr auto activationTokenVariable = "XDG_ACTIVATION_TOKEN";

std::function<void()> reopenProgram;

/// The dialog that the user has to answer first, or the main window.
QWidget *frontWindow()
{
    if (QWidget *dialog = QApplication::activeModalWidget())
        return dialog;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow *>(window) && window->isVisible())
            return window;
    }
    return nullptr;
}

void reopenWith(const LaunchToken &token)
{
    if (!token.activationToken.isEmpty()) // the toolkit reads it from there when a window is activated
        qputenv(activationTokenVariable, token.activationToken.toUtf8());
    if (reopenProgram)
        reopenProgram();
    if (QWidget *window = frontWindow())
        activateWindow(*window, token);
}

} // namespace

LaunchToken launchToken()
{
    return {.startupId = qEnvironmentVariable(startupIdVariable),
            .activationToken = qEnvironmentVariable(activationTokenVariable)};
}

bool becomeOnlyProgram(const LaunchToken &token)
{
    if (!hasSessionBus() || !QDBusConnection::sessionBus().isConnected())
        return takeProgramLock([] { reopenWith({}); });
    auto *service = new ApplicationService(qApp);
    service->onActivation(reopenWith);
    return service->serve(QDBusConnection::sessionBus(), token);
}

void onReopen(std::function<void()> reopen)
{
    reopenProgram = std::move(reopen);
}
