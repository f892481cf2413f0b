#include "Modal.h"

#include <QApplication>
#include <QTimer>

#include <utility>

void whenModal(std::function<void(QWidget *dialog)> answer, std::function<bool(const QWidget *dialog)> counts)
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer,
                     [timer, answer = std::move(answer), counts = std::move(counts)] {
                         QWidget *dialog = QApplication::activeModalWidget();
                         if (!dialog || !dialog->isVisible() || (counts && !counts(dialog)))
                             return;
                         if (!dialog->isActiveWindow() && !dialog->testAttribute(Qt::WA_DontShowOnScreen))
                             return; // the keyboard is not there yet
                         timer->stop();
                         timer->deleteLater();
                         answer(dialog);
                     });
    timer->start(0);
}
