#include "Modal.h"

#include <QApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <utility>

namespace
{

class Waiting
{
public:
    Waiting(std::function<void(QWidget *)> answer, std::function<bool(const QWidget *)> counts)
        : m_answer(std::move(answer)), m_counts(std::move(counts))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(0);
    }
    ~Waiting() { EXPECT_FALSE(m_timer.isActive()) << "no dialog has come"; }
    Q_DISABLE_COPY_MOVE(Waiting)

private:
    void look()
    {
        QWidget *dialog = QApplication::activeModalWidget();
        if (!dialog || !dialog->isVisible() || (m_counts && !m_counts(dialog)))
            return;
        if (!dialog->isActiveWindow())
            return; // the keyboard is not there yet
        m_timer.stop();
        m_answer(dialog);
    }

    std::function<void(QWidget *)> m_answer;
    std::function<bool(const QWidget *)> m_counts;
    QTimer m_timer;
};

} // namespace

std::shared_ptr<void> whenModal(std::function<void(QWidget *dialog)> answer,
                                std::function<bool(const QWidget *dialog)> counts)
{
    return std::make_shared<Waiting>(std::move(answer), std::move(counts));
}
