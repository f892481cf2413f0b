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

} // namespace

GeneralSection::GeneralSection(SettingsModel &model, QWidget *parent) : SectionContent(parent), m_model(model)
{
    addAgentGroup();
    addRecordingGroup();
    addUpdatesGroup();
}

void GeneralSection::addDeferredGroups()
{
    add(shortcutsGroup(m_model));
}

void GeneralSection::addAgentGroup()
{
    auto *launch = new Switch;
    auto *typeface = new Picker;
    auto *terminal = new Picker;
    auto *typefaceRow = new SettingsRow({.icon = u"textformat"_s,
                                         .tint = SystemColor::indigo,
                                         .title = u"Typeface"_s,
                                         .subtitle = typefaceSubtitle(m_model.typeface),
                                         .accessory = typeface});
    add(new SettingsGroup(
        {},
        {new SettingsRow({.icon = u"power"_s,
                          .tint = SystemColor::green,
                          .title = u"Launch at Login"_s,
                          .subtitle = u"Keep the notification agent running via launchd."_s,
                          .accessory = launch}),
         new SettingsRowDivider, typefaceRow, new SettingsRowDivider,
         new SettingsRow({.icon = u"terminal.fill"_s,
                          .tint = SystemColor::teal,
                          .title = u"Terminal"_s,
                          .subtitle = u"Which terminal the agent focuses, lists, and launches sessions in."_s,
                          .accessory = terminal})}));

    terminal->setEntries(terminalEntries());
    bind(launch, m_model.launchAtLogin, &GeneralSection::setLaunchAtLogin);
    const auto showPending = [=, this] { launch->setPending(m_model.launchAtLoginIsChanging); };
    connect(launch, &Switch::requested, this, showPending);
    renderPage(m_model, showPending);
    connect(typeface, &Picker::activated, this,
            [this](int index) { m_model.setTypeface(allTypefaceOptions[size_t(index)]); });
    connect(terminal, &Picker::activated, this,
            [this](int index) { m_model.setTerminalBackend(allTerminalBackendOptions[size_t(index)]); });
    renderPage(m_model, [=, this] {
        typeface->setEntries(typefaceEntries());
        typeface->setCurrentIndex(int(m_model.typeface.value()));
        typefaceRow->setSubtitle(typefaceSubtitle(m_model.typeface));
        terminal->setCurrentIndex(int(m_model.terminalBackend.value()));
    });
}

void GeneralSection::addRecordingGroup()
{
    auto *recording = new Switch;
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
                          .accessory = recording})}));
    bind(recording, m_model.greenScreen, &GeneralSection::setGreenScreen);
}

void GeneralSection::addUpdatesGroup()
{
    auto *updates = new Switch;
    add(new SettingsGroup({.header = u"Updates"_s},
                          {new SettingsRow({.icon = u"arrow.down.app.fill"_s,
                                            .tint = SystemColor::blue,
                                            .title = u"Automatic Updates"_s,
                                            .subtitle = u"Let the standalone updater check for signed Vantle "
                                                        u"releases in the background."_s,
                                            .accessory = updates})}));
    bind(updates, m_model.automaticUpdates, &GeneralSection::setAutomaticUpdates);
}

/// A click is answered at once, not only when the page is drawn anew: another one may wait already.
void GeneralSection::bind(Switch *button, const Published<bool> &state, void (GeneralSection::*set)(bool))
{
    connect(button, &Switch::requested, this, [=, this, &state](bool on) {
        (this->*set)(on);
        button->setChecked(state);
    });
    renderPage(m_model, [=, &state] { button->setChecked(state); });
}

void GeneralSection::setLaunchAtLogin(bool on)
{
    m_model.launchAtLoginIsChanging = true;
    const auto store = [model = QPointer(&m_model)](bool loaded) {
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

void GeneralSection::setGreenScreen(bool on)
{
    if (on == m_model.greenScreen)
        return;
    Persistence::saveGreenScreen(on);
    m_model.greenScreen = on;
    AgentBridge::fireAndForget(SharedFiles::greenScreen.reload);
}

void GeneralSection::setAutomaticUpdates(bool on)
{
    if (on == m_model.automaticUpdates)
        return;
    // The address is the updater's; it is read anew so that one written meanwhile survives.
    const auto manifestURL = Persistence::loadUpdatesConfig().manifestURL;
    Persistence::saveUpdatesConfig({.automatic = on, .manifestURL = manifestURL});
    m_model.automaticUpdates = on;
}
