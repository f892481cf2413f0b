#include "AppDelegate/SettingsAppDelegate.h"

#include "AgentBridge/AgentBridge.h"
#include "AppDelegate/MainMenu.h"
#include "LaunchAgent/LaunchAgent.h"
#include "Model/SettingsModel.h"
#include "Platform/Desktop/Pasteboard.h"
#include "Platform/Window/ApplicationMenu.h"
#include "Platform/Window/OnlyProgram.h"
#include "Platform/Window/WindowChrome.h"
#include "SettingsWindow/SettingsWindowController.h"

#include <QDeadlineTimer>
#include <QPointer>

#include <chrono>

using namespace std::chrono_literals;

SettingsAppDelegate::SettingsAppDelegate(QObject *parent) : QObject(parent)
{
}

SettingsAppDelegate::~SettingsAppDelegate() = default;

void SettingsAppDelegate::applicationDidFinishLaunching()
{
    becomeRegularApplication();
    m_model = std::make_unique<SettingsModel>();
    m_controller = std::make_unique<SettingsWindowController>(SettingsSection::general, *m_model);
    buildMainMenu(m_controller->window()); // shown in the window, on desktops without a menu bar of their own
    m_controller->onWindowClose = [delegate = QPointer(this)] {
        if (!delegate)
            return;
        delegate->dropController();
        Q_EMIT delegate->terminate();
    };
    onReopen([delegate = QPointer(this)] {
        if (delegate)
            delegate->applicationShouldHandleReopen(delegate->m_controller &&
                                                    delegate->m_controller->isVisible());
    });
    m_controller->showWindow();
}

bool SettingsAppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    if (!hasVisibleWindows && m_controller)
        m_controller->showWindow();
    return true;
}

void SettingsAppDelegate::applicationWillTerminate()
{
    const QDeadlineTimer end(900ms);
    LaunchAgent::finish(300ms);
    Pasteboard::finish(300ms);
    AgentBridge::finish(std::chrono::milliseconds(end.remainingTime()));
}

void SettingsAppDelegate::dropController()
{
    // The window is still closing; it is deleted with its controller on the next turn of the event loop.
    m_controller.release()->deleteLater();
}
