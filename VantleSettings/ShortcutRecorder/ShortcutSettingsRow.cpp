#include "ShortcutRecorder/ShortcutSettingsRow.h"

#include "AgentBridge/AgentBridge.h"
#include "Components/Buttons.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Persistence/SharedFiles.h"
#include "Platform/Keyboard/KeyboardLayout.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/Announcement.h"
#include "ShortcutRecorder/ShortcutRecorder.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int accessorySpacing = 8;
constexpr qreal resetPointSize = 11;

KeyCombo currentCombo(const SettingsModel &model, ShortcutAction action)
{
    const Shortcuts::Bindings &bindings = model.shortcuts().bindings;
    const auto binding = bindings.find(action);
    return binding == bindings.end() ? defaultCombo(action) : binding->second;
}

ShortcutRecorder *recorderFor(ShortcutAction action, SettingsModel &model)
{
    auto *recorder =
        new ShortcutRecorder(currentCombo(model, action), [action, &model](const KeyCombo &combo) {
            model.rebindShortcut(action, combo);
        });
    recorder->setAccessibleName(title(action) + u" shortcut"_s);
    return recorder;
}

QWidget *sideBySide(QWidget *first, QWidget *second)
{
    auto *both = new QWidget;
    auto *layout = new QHBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(accessorySpacing);
    layout->addWidget(first, 0, Qt::AlignVCenter);
    layout->addWidget(second, 0, Qt::AlignVCenter);
    return both;
}

} // namespace

void resetShortcut(SettingsModel &model, ShortcutAction action)
{
    model.shortcuts().reset(action);
    AgentBridge::fireAndForget(SharedFiles::shortcuts.reload);
    Q_EMIT model.objectWillChange();
}

ShortcutSettingsRow::ShortcutSettingsRow(ShortcutAction action, SettingsModel &model, QWidget *parent)
    : ShortcutSettingsRow(action, model, recorderFor(action, model),
                          new IconButton({u"arrow.counterclockwise"_s, resetPointSize, QFont::Medium}, {}),
                          parent)
{
}

ShortcutSettingsRow::ShortcutSettingsRow(ShortcutAction action, SettingsModel &model,
                                         ShortcutRecorder *recorder, IconButton *reset, QWidget *parent)
    : SettingsRow({.icon = icon(action),
                   .tint = tint(action),
                   .title = title(action),
                   .subtitle = QString(),
                   .accessory = sideBySide(recorder, reset)},
                  parent)
{
    connect(reset, &IconButton::clicked, this, [this, action, &model] {
        resetShortcut(model, action);
        announce(this, u"%1 reset to %2"_s.arg(title(action), defaultCombo(action).spoken()));
    });
    const auto draw = [this, action, recorder, reset, &model] {
        const QString byDefault = defaultCombo(action).display();
        const QString spokenDefault = defaultCombo(action).spoken();
        setSubtitle(u"Default "_s + byDefault, u"Default "_s + spokenDefault);
        recorder->setCombo(currentCombo(model, action));
        reset->setToolTip(u"Reset to default (%1)"_s.arg(byDefault));
        changeAccessibleName(reset, u"Reset %1 to default (%2)"_s.arg(title(action), byDefault));
        setSpokenName(reset, u"Reset %1 to default (%2)"_s.arg(title(action), spokenDefault));
    };
    renderOnChange(this, model, draw);
    renderOnChange(this, model.shortcuts(), draw);
    renderOnChange(this, Seam<KeyboardLayout>::current(), draw);
}
