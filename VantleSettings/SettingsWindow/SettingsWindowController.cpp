#include "SettingsWindow/SettingsWindowController.h"

#include "Components/Drawing/Tokens.h"
#include "Model/SettingsModel.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/WindowChrome.h"
#include "Platform/Window/WindowFrame.h"
#include "SettingsWindow/SettingsRootView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QScreen>
#include <QWindow>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr QSize initialSize(860, 640);
constexpr QSize minimumSize(780, 540);
constexpr QLatin1String frameName("VantleSettingsWindow");

/// Whether the event is from a mouse or a touchpad. The toolkit and the window system also turn events of a
/// finger or a pen that nothing else handles into mouse events.
bool isOfMouse(const QMouseEvent &event)
{
    const QInputDevice::DeviceType device = event.deviceType();
    return event.source() == Qt::MouseEventNotSynthesized &&
           (device == QInputDevice::DeviceType::Mouse || device == QInputDevice::DeviceType::TouchPad);
}

/// This size, scaled with the texts as far as the screen has room.
QSize sizeForText(QSize size)
{
    const QSize wanted(scaledWithText(size.width()), scaledWithText(size.height()));
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? wanted : wanted.boundedTo(screen->availableSize().expandedTo(size));
}

} // namespace

SettingsNSWindow::SettingsNSWindow(QWidget *parent) : QMainWindow(parent)
{
    setAccessibleRole(this, QAccessible::Window);
}

// A layout that grows notifies the one around it by a posted event, level by level. Without this, the window
// would be painted between two levels.
bool SettingsNSWindow::event(QEvent *event)
{
    if (event->type() == QEvent::UpdateRequest)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const bool handled = QMainWindow::event(event);
    if (event->type() == QEvent::ApplicationFontChange)
        Q_EMIT textSizeChanged();
    return handled;
}

void SettingsNSWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (!std::exchange(m_isClosing, true))
        Q_EMIT willClose();
}

// A press reaches the window only where no control took it.
void SettingsNSWindow::mousePressEvent(QMouseEvent *event)
{
    m_pressed.reset();
    if (event->button() == Qt::LeftButton && isOfMouse(*event))
        m_pressed = event->globalPosition().toPoint();
}

void SettingsNSWindow::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_pressed)
        return;
    const QPoint distance = event->globalPosition().toPoint() - *m_pressed;
    if (distance.manhattanLength() < QApplication::startDragDistance())
        return;
    m_pressed.reset();
    startMove();
}

void SettingsNSWindow::mouseReleaseEvent(QMouseEvent *)
{
    m_pressed.reset();
}

void SettingsNSWindow::startMove()
{
    windowHandle()->startSystemMove();
}

SettingsWindowController::SettingsWindowController(SettingsSection initialSection, SettingsModel &model)
    : m_window(std::make_unique<SettingsNSWindow>())
{
    model.section = initialSection;
    m_window->setWindowTitle(u"Vantle Settings"_s);
    fitToText();
    QPalette palette = m_window->palette();
    palette.setColor(QPalette::Window, Tokens::windowBackground);
    m_window->setPalette(palette);
    prepareWindow(*m_window);
    restoreWindowFrame(*m_window, frameName);
    keepWindowFrame(*m_window, frameName);
    connect(m_window.get(), &SettingsNSWindow::textSizeChanged, this, &SettingsWindowController::fitToText);
    connect(m_window.get(), &SettingsNSWindow::willClose, this, &SettingsWindowController::windowWillClose);
    m_window->setCentralWidget(new SettingsRootView(model, titleBarHeight(*m_window)));
}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::showWindow()
{
    if (m_window->isMinimized())
        m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    bringToFront(*m_window);
}

bool SettingsWindowController::isVisible() const
{
    return m_window->isVisible() && !m_window->isMinimized();
}

/// Scales the least size with the texts, and the size of a window that still has its first one.
void SettingsWindowController::fitToText()
{
    const QSize before = std::exchange(m_firstSize, sizeForText(initialSize));
    const bool hasFirstSize = !before.isValid() || m_window->size() == before;
    m_window->setMinimumSize(sizeForText(minimumSize)); // which may resize the window
    if (hasFirstSize)
        m_window->resize(m_firstSize);
}

void SettingsWindowController::windowWillClose()
{
    saveWindowFrame(*m_window, frameName);
    if (onWindowClose)
        onWindowClose();
}
