#pragma once

#include <QObject>

#include <memory>

class SettingsModel;
class SettingsWindowController;

/// The program as a whole: it makes the one window, and ends when the window closes.
class SettingsAppDelegate : public QObject
{
    Q_OBJECT

public:
    explicit SettingsAppDelegate(QObject *parent = nullptr);
    ~SettingsAppDelegate() override;

    /// Loads all settings and shows the window, once, when the application is up.
    void applicationDidFinishLaunching();

    /// Called when the program is started again: shows the window if it is not visible. Returns true.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

    /// Called after the event loop: completes the last change, and keeps what was copied available. Waits for
    /// less than a second in all, and not at all when nothing is pending.
    void applicationWillTerminate();

    /// The one window's controller; none before launching has finished and after the window has closed.
    SettingsWindowController *controller() const { return m_controller.get(); }

Q_SIGNALS:
    /// The window has closed, and the program should end.
    void terminate();

private:
    void dropController();

    std::unique_ptr<SettingsModel> m_model; ///< outlives the controller and its window
    std::unique_ptr<SettingsWindowController> m_controller;
};
