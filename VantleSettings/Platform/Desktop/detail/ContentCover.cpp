#include "Platform/Desktop/detail/ContentCover.h"

#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::chrono::milliseconds showDelay{150};
constexpr QColor dimColor{0, 0, 0, 153}; // black 60 %
constexpr int padding = 20;
constexpr int gap = 16;
constexpr int radius = 12;

} // namespace

ContentCover::ContentCover(QMainWindow &window, const QString &title, const QString &message)
    : QWidget(&window),
      m_content(window.centralWidget()),
      m_focused(window.focusWidget()),
      m_message(new QLabel(message)),
      m_cancel(new QPushButton(u"Cancel"_s))
{
    hide();
    setAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(title);
    setAccessibleRole(m_message, QAccessible::StaticText);
    m_message->setAccessibleName(message);
    m_message->setTextFormat(Qt::PlainText);
    m_message->setAlignment(Qt::AlignCenter);
    setDescribes(m_message, m_cancel);
    m_cancel->setAccessibleDescription(message);
    connect(m_cancel, &QPushButton::clicked, this, &ContentCover::cancelled);

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(gap);
    layout->addStretch();
    layout->addWidget(m_message, 0, Qt::AlignHCenter);
    layout->addWidget(m_cancel, 0, Qt::AlignHCenter);
    layout->addStretch();

    m_content->setEnabled(false);
    m_content->installEventFilter(this);
    QTimer::singleShot(showDelay, this, &ContentCover::appear);
}

void ContentCover::lift()
{
    hide();
    if (m_content)
        m_content->setEnabled(true);
    if (m_focused)
        m_focused->setFocus();
}

void ContentCover::appear()
{
    if (!m_content)
        return;
    setGeometry(m_content->geometry());
    raise();
    show();
    m_cancel->setFocus();
}

bool ContentCover::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        setGeometry(m_content->geometry());
    return QWidget::eventFilter(object, event);
}

void ContentCover::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel))
        Q_EMIT cancelled();
    else
        QWidget::keyPressEvent(event);
}

void ContentCover::paintEvent(QPaintEvent *)
{
    const QRect texts = m_message->geometry().united(m_cancel->geometry());
    QPainter painter(this);
    painter.fillRect(rect(), dimColor);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QApplication::palette("QDialog").window());
    painter.drawRoundedRect(texts.adjusted(-padding, -padding, padding, padding), radius, radius);
}
