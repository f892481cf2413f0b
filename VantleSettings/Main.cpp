#include "AppDelegate/SettingsAppDelegate.h"
#include "Components/Style/Look.h"
#include "FontRegistration/FontRegistration.h"
#include "Platform/Agent/SessionBus.h"
#include "Platform/Window/Application.h"
#include "Platform/Window/OnlyProgram.h"
#include "Platform/Window/QuitSignals.h"
#include "Platform/Window/ToolkitMessages.h"

#include <array>
#include <chrono>

using namespace std::chrono_literals;

int main()
{
    // The command line is ignored, including the toolkit's own options: the toolkit is given a fixed one.
    std::array name{'v', 'a', 'n', 't', 'l', 'e', '-', 's', 'e', 't', 't', 'i', 'n', 'g', 's', '\0'};
    std::array<char *, 2> arguments{name.data(), nullptr};
    int argumentCount = 1;
    filterToolkitMessages();
    const LaunchToken token = launchToken();
    abandonSilentSessionBus(400ms); // the model waits as well; together less than a second
    Application application(argumentCount, arguments.data());
    if (!becomeOnlyProgram(token))
        return 0;
    Application::setApplicationDisplayName(QStringLiteral("Vantle Settings"));
    Application::setDesktopFileName(QStringLiteral("com.vantle.settings"));
    FontRegistration::registerBundledFonts();
    installLook(application);

    SettingsAppDelegate delegate;
    QObject::connect(&delegate, &SettingsAppDelegate::terminate, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    onQuitSignal(&QCoreApplication::quit);
    delegate.applicationDidFinishLaunching();
    followAppearance(); // answered when the window is on the screen
    Application::exec();
    delegate.applicationWillTerminate();
    return 0;
}
