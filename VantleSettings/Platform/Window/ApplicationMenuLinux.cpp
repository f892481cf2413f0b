#include "Platform/Files/Bundle.h"
#include "Platform/Window/ApplicationMenu.h"

#include <QAction>
#include <QMenuBar>
#include <QMessageBox>

using namespace Qt::StringLiterals;

void adoptMenuBar(QMenuBar &bar, const StandardMenuItems &items, QMenu &, QMenu &)
{
    bar.setNativeMenuBar(false);
    for (QAction *item : {items.hide, items.hideOthers, items.showAll})
        item->setEnabled(false);
}

void showAboutPanel(QWidget &window)
{
    static constexpr auto name = "aboutPanel";
    auto *panel = window.findChild<QMessageBox *>(QLatin1String(name));
    if (!panel) {
        panel = new QMessageBox(&window);
        panel->setObjectName(QLatin1String(name));
        panel->setAttribute(Qt::WA_DeleteOnClose);
        panel->setWindowModality(Qt::NonModal);
        panel->setWindowTitle(u"About Vantle Settings"_s);
        panel->setTextFormat(Qt::PlainText);
        panel->setText(u"Vantle Settings"_s);
        panel->setInformativeText(u"Version "_s + Bundle::main().version.value_or(u"dev"_s));
        panel->setStandardButtons(QMessageBox::Ok);
    }
    panel->show();
    panel->raise();
    panel->activateWindow();
}

void becomeRegularApplication()
{
}
