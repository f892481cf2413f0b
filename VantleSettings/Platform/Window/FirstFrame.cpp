#include "Platform/Window/FirstFrame.h"

#include <QEvent>
#include <QWidget>

#include <utility>

namespace
{

class FirstFrame : public QObject
{
public:
    FirstFrame(QWidget &widget, std::function<void()> work) : QObject(&widget), m_work(std::move(work))
    {
        widget.installEventFilter(this);
    }

    bool eventFilter(QObject *widget, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            widget->removeEventFilter(this);
            QMetaObject::invokeMethod(
                this,
                [this] {
                    m_work();
                    deleteLater();
                },
                Qt::QueuedConnection);
        }
        return false;
    }

private:
    std::function<void()> m_work;
};

} // namespace

void afterFirstFrame(QWidget &widget, std::function<void()> work)
{
    new FirstFrame(widget, std::move(work));
}
