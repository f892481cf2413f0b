#include "SettingsWindow/Sections/GeneralSection.h"

#include "AgentBridge/AgentBridge.h"
#include "Components/Picker.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Components/Switch.h"
#include "Foundation/Seam.h"
#include "LaunchAgent/LaunchAgent.h"
#include "Model/SettingsModel.h"
#include "Persistence/Persistence.h"
#include "Persistence/SharedFiles.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"
#include "SettingsWindow/Sections/ShortcutsGroup.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace
{

QString label(TypefaceOption option)
{
    return option == TypefaceOption::system ? u"System (SF Pro)"_s : u"JetBrains Mono"_s;
}

QString label(TerminalBackendOption option)
{
    return option == TerminalBackendOption::iterm ? u"iTerm2"_s : u"Vantle Terminal"_s;
}

bool isTypefaceAvailable(TypefaceOption option)
{
    return option == TypefaceOption::system || Seam<FontRegistry>::current().has(u"JetBrainsMono-Regular"_s);
}

QStringList typefaceEntries()
{
    QStringList entries;
    for (const TypefaceOption option : allTypefaceOptions)
        entries << (isTypefaceAvailable(option) ? label(option) : label(option) + u" — not installed"_s);
    return entries;
}

QStringList terminalEntries()
{
    QStringList entries;
    for (const TerminalBackendOption option : allTerminalBackendOptions)
        entries << label(option);
    return entries;
}

QString typefaceSubtitle(TypefaceOption typeface)
{
    if (isTypefaceAvailable(typeface))
        return u"Used for every label rendered by the notch overlay."_s;
    return u"Install "_s + label(typeface) + u" to enable. The agent falls back to SF Pro when missing."_s;
}

void setLaunchAtLogin(SettingsModel &model, bool on)
{
    model.launchAtLoginIsChanging = true;
    const auto store = [model = QPointer(&model)](bool loaded) {
        if (!model)
            return;
        model->launchAtLogin = loaded;
        model->launchAtLoginIsChanging = false;
    };
    const auto readBack = [store](bool) { LaunchAgent::isLoaded(store); };
    if (on)
        LaunchAgent::load(readBack);
    else
        LaunchAgent::unload(readBack);
}

void setGreenScreen(SettingsModel &model, bool on)
{
    if (on == model.greenScreen)
        return;
    Persistence::saveGreenScreen(on);
    model.greenScreen = on;
    AgentBridge::fireAndForget(SharedFiles::greenScreen.reload);
}

void setAutomaticUpdates(SettingsModel &model, bool on)
{
    if (on == model.automaticUpdates)
        return;
    // The updater owns the address. It is read again so that a change made meanwhile is kept.
    const auto manifestURL = Persistence::loadUpdatesConfig().manifestURL;
    Persistence::saveUpdatesConfig({.automatic = on, .manifestURL = manifestURL});
    model.automaticUpdates = on;
}

} // namespace

GeneralSection::GeneralSection(SettingsModel &model, QWidget *parent) : SectionContent(parent), m_model(model)
{
    add(new SettingsGroup(
        {},
        {new SettingsRow({.icon = u"power"_s,
                          .tint = SystemColor::green,
                          .title = u"Launch at Login"_s,
                          .subtitle = u"Keep the notification agent running via launchd."_s,
                          .accessory = launchAtLoginSwitch()}),
         new SettingsRowDivider, typefaceRow(), new SettingsRowDivider,
         new SettingsRow({.icon = u"terminal.fill"_s,
                          .tint = SystemColor::teal,
                          .title = u"Terminal"_s,
                          .subtitle = u"Which terminal the agent focuses, lists, and launches sessions in."_s,
                          .accessory = terminalPicker()})}));
    add(new SettingsGroup(
        {.header = u"Recording"_s,
         .footer =
             u"Fills the notch overlay window with chroma magenta (#FF00FF) so a screen recording can be "
             u"chroma-keyed in post into a transparent APNG. Magenta is used instead of green so the UI's "
             u"mint accents and progress bars survive the key. Use rust/scripts/record-marketing-scenes.sh "
             u"to drive every demo scene through capture, key, and APNG export."_s},
        {new SettingsRow({.icon = u"video.fill"_s,
                          .tint = SystemColor::pink,
                          .title = u"Marketing Recording Mode"_s,
                          .subtitle =
                              u"Render the overlay on solid magenta so it can be keyed for transparent "
                              u"marketing footage."_s,
                          .accessory = switchOf(m_model.greenScreen, setGreenScreen)})}));
    add(new SettingsGroup(
        {.header = u"Updates"_s},
        {new SettingsRow({.icon = u"arrow.down.app.fill"_s,
                          .tint = SystemColor::blue,
                          .title = u"Automatic Updates"_s,
                          .subtitle = u"Let the standalone updater check for signed Vantle "
                                      u"releases in the background."_s,
                          .accessory = switchOf(m_model.automaticUpdates, setAutomaticUpdates)})}));
}

void GeneralSection::addDeferredGroups()
{
    add(shortcutsGroup(m_model));
}

/// A click is answered at once, not only when the page is rendered: the next click may be queued already.
Switch *GeneralSection::switchOf(const Published<bool> &state, void (*set)(SettingsModel &model, bool on))
{
    auto *button = new Switch;
    connect(button, &Switch::requested, this, [=, this, &state](bool on) {
        set(m_model, on);
        button->setChecked(state);
    });
    renderPage(m_model, [=, &state] { button->setChecked(state); });
    return button;
}

Switch *GeneralSection::launchAtLoginSwitch()
{
    Switch *launch = switchOf(m_model.launchAtLogin, setLaunchAtLogin);
    const auto showPending = [=, this] { launch->setPending(m_model.launchAtLoginIsChanging); };
    connect(launch, &Switch::requested, this, showPending);
    renderPage(m_model, showPending);
    return launch;
}

/// Both the picker's entries and the subtitle say whether the typeface is installed.
SettingsRow *GeneralSection::typefaceRow()
{
    auto *typeface = new Picker;
    auto *row = new SettingsRow({.icon = u"textformat"_s,
                                 .tint = SystemColor::indigo,
                                 .title = u"Typeface"_s,
                                 .subtitle = typefaceSubtitle(m_model.typeface),
                                 .accessory = typeface});
    connect(typeface, &Picker::activated, this,
            [this](int index) { m_model.setTypeface(allTypefaceOptions[size_t(index)]); });
    renderPage(m_model, [=, this] {
        typeface->setEntries(typefaceEntries());
        typeface->setCurrentIndex(int(m_model.typeface.value()));
        row->setSubtitle(typefaceSubtitle(m_model.typeface));
    });
    return row;
}

Picker *GeneralSection::terminalPicker()
{
    auto *terminal = new Picker;
    terminal->setEntries(terminalEntries());
    connect(terminal, &Picker::activated, this,
            [this](int index) { m_model.setTerminalBackend(allTerminalBackendOptions[size_t(index)]); });
    renderPage(m_model, [=, this] { terminal->setCurrentIndex(int(m_model.terminalBackend.value())); });
    return terminal;
}
