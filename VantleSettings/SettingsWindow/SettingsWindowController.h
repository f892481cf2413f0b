#pragma once

#include "Model/SettingsSection.h"

#include <QMainWindow>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class SettingsModel;

/// The window itself. Dragging its empty background with a mouse moves it.
class SettingsNSWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit SettingsNSWindow(QWidget *parent = nullptr);

Q_SIGNALS:
    /// The window is about to close for good, whatever closes it. Emitted once.
    void willClose();
    /// The size of the texts has changed.
    void textSizeChanged();

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

    /// Hands the window to the window system, which moves it until the button is released.
    virtual void startMove();

private:
    std::optional<QPoint> m_pressed; ///< where the empty background was pressed, in screen coordinates
    bool m_isClosing = false;
};

/// Makes the one settings window, remembers its frame between runs, and reports its closing.
class SettingsWindowController : public QObject
{
    Q_OBJECT

public:
    SettingsWindowController(SettingsSection initialSection, SettingsModel &model);
    ~SettingsWindowController() override;

    /// Called once, when the window closes.
    std::function<void()> onWindowClose;

    /// Shows the window in front of all others, with the keyboard focus.
    void showWindow();

    /// Whether the window can be seen: open and not minimised.
    bool isVisible() const;

    SettingsNSWindow &window() const { return *m_window; }

private:
    void windowWillClose();
    void fitToText();

    QSize m_firstSize;
    std::unique_ptr<SettingsNSWindow> m_window;
};
