#include "Alerts.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Platform/Desktop/detail/ConfirmationDialog.h"
#include "SampleDesk.h"
#include "SettingsWindow/Sections/DataSection.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

/// Keeps what the page asks instead of showing it.
struct AskedQuestion final : Dialogs {
    std::optional<QString> chooseDirectory(const DirectoryQuestion &) override { return std::nullopt; }
    bool confirm(const Confirmation &confirmation) override
    {
        question = confirmation;
        return false;
    }
    Confirmation question;
};

/// The question that this button of the Data & Privacy page asks.
Confirmation questionBehind(const QString &button)
{
    SampleDesk desk;
    SettingsModel model;
    DataSection page(model);
    AskedQuestion asked;
    const Seam<Dialogs>::Replacement replacement(asked);
    for (QPushButton *each : page.findChildren<QPushButton *>()) {
        if (each->accessibleName() == button)
            each->click();
    }
    return asked.question;
}

Screenshot alert(const QString &name, const QString &button)
{
    return {name, {}, [=] { return std::make_unique<ConfirmationDialog>(questionBehind(button)); }};
}

} // namespace

std::vector<Screenshot> alertScreenshots()
{
    return {
        alert(u"dialog-clear-sessions"_s, u"Clear Sessions…"_s),
        alert(u"dialog-clear-patterns"_s, u"Clear Browser Patterns…"_s),
        alert(u"dialog-uninstall-hooks"_s, u"Uninstall Hooks…"_s),
    };
}
