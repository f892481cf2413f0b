#include "SettingsWindow/Sections/ShortcutsGroup.h"

#include "Components/Buttons.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Platform/Window/Accessibility/Announcement.h"
#include "ShortcutRecorder/ShortcutSettingsRow.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int resetPaddingSides = 16;
constexpr int resetPaddingVertical = 10;

/// The button resets each action by itself, like its row's button: the agent reads the file after each.
QWidget *resetAllRow(SettingsModel &model)
{
    auto *row = new QWidget;
    auto *resetAll = new LinkButton(u"Reset all shortcuts"_s);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(resetPaddingSides, resetPaddingVertical, resetPaddingSides,
                               resetPaddingVertical);
    layout->addStretch();
    layout->addWidget(resetAll);
    QObject::connect(resetAll, &LinkButton::clicked, row, [row, &model] {
        for (const ShortcutAction action : allShortcutActions)
            resetShortcut(model, action);
        announce(row, u"All shortcuts reset"_s);
    });
    return row;
}

} // namespace

SettingsGroup *shortcutsGroup(SettingsModel &model)
{
    return new SettingsGroup(
        {.header = u"Keyboard Shortcuts"_s, .footer = u"Click a shortcut to rebind it. Press ⎋ to cancel."_s},
        {new ShortcutSettingsRow(ShortcutAction::focusLast, model), new SettingsRowDivider,
         new ShortcutSettingsRow(ShortcutAction::focusPrevious, model), new SettingsRowDivider,
         new ShortcutSettingsRow(ShortcutAction::openPlan, model), new SettingsRowDivider,
         resetAllRow(model)});
}
