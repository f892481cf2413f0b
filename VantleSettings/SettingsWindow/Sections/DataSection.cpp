#include "SettingsWindow/Sections/DataSection.h"

#include "AgentBridge/AgentBridge.h"
#include "Components/Buttons.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Persistence/SharedFiles.h"
#include "Platform/Desktop/Dialogs.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

#include <QPointer>

using namespace Qt::StringLiterals;

DataSection::DataSection(SettingsModel &model, QWidget *parent) : SectionContent(parent), m_model(model)
{
    auto *clearSessions = new PushButton(u"Clear…"_s);
    clearSessions->setAccessibleName(u"Clear Sessions…"_s);
    auto *sessions = new SettingsRow({.icon = u"rectangle.stack.fill"_s,
                                      .tint = SystemColor::teal,
                                      .title = u"Sessions"_s,
                                      .subtitle = sessionsSubtitle(),
                                      .accessory = clearSessions});

    auto *clearPatterns = new PushButton(u"Clear…"_s);
    clearPatterns->setAccessibleName(u"Clear Browser Patterns…"_s);
    auto *patterns = new SettingsRow({.icon = u"globe"_s,
                                      .tint = SystemColor::blue,
                                      .title = u"Browser Patterns"_s,
                                      .subtitle = browsersSubtitle(),
                                      .accessory = clearPatterns});

    auto *uninstallHooks = new PushButton(u"Uninstall…"_s);
    uninstallHooks->setAccessibleName(u"Uninstall Hooks…"_s);
    auto *hooks = new SettingsRow({.icon = u"link.badge.plus"_s,
                                   .tint = SystemColor::red,
                                   .title = u"Claude & Codex Hooks"_s,
                                   .subtitle = u"Remove the hook entries Vantle installed. The notch overlay "
                                               "will stop receiving session events until reinstalled."_s,
                                   .accessory = uninstallHooks});

    add(new SettingsGroup({.header = u"Storage"_s}, {sessions, new SettingsRowDivider, patterns}));
    add(new SettingsGroup({.header = u"Hooks"_s}, {hooks}));

    connect(clearSessions, &QPushButton::clicked, this, &DataSection::confirmClearSessions);
    connect(clearPatterns, &QPushButton::clicked, this, &DataSection::confirmClearPatterns);
    connect(uninstallHooks, &QPushButton::clicked, this, &DataSection::confirmUninstallHooks);
    renderPage(model, [=, this] {
        sessions->setSubtitle(sessionsSubtitle());
        patterns->setSubtitle(browsersSubtitle());
    });
}

QString DataSection::sessionsSubtitle() const
{
    const QString registry = Path::appending(homeDirectory().value_or(QString()), SharedFiles::sessions.path);
    return u"%1 stored · "_s.arg(m_model.sessionsCount.value()) + registry;
}

QString DataSection::browsersSubtitle() const
{
    return u"%1 projects configured"_s.arg(m_model.browserPatternsCount.value());
}

void DataSection::confirmClearSessions()
{
    if (agreed(
            {.message = u"Clear all sessions?"_s,
             .informative = u"The notch will forget every session it knows about. This cannot be undone."_s,
             .style = Confirmation::Style::warning,
             .action = u"Clear"_s}))
        m_model.clearSessions();
}

void DataSection::confirmClearPatterns()
{
    if (agreed({.message = u"Clear browser patterns?"_s,
                .informative = u"All URL patterns for every project will be removed."_s,
                .style = Confirmation::Style::warning,
                .action = u"Clear"_s}))
        m_model.clearBrowserPatterns();
}

void DataSection::confirmUninstallHooks()
{
    if (agreed(
            {.message = u"Uninstall Vantle hooks?"_s,
             .informative =
                 u"Vantle will remove its entries from ~/.claude/settings.json and ~/.codex/hooks.json and "
                 "delete ~/.claude/scripts/vantle.sh.\n\n"
                 "Without these hooks Vantle will not function as expected: the notch overlay will stop "
                 "receiving session events, notifications will not appear, and most features will be inert "
                 "until you reinstall.\n\n"
                 "Backups of the modified files are written next to the originals."_s,
             .style = Confirmation::Style::critical,
             .action = u"Uninstall"_s}))
        AgentBridge::fireAndForget(u"/settings/uninstall-hooks"_s);
}

/// Asks the user; returns whether the user agreed and the page still exists.
bool DataSection::agreed(const Confirmation &confirmation)
{
    const QPointer<DataSection> page(this);
    return Seam<Dialogs>::current().confirm(confirmation) && page;
}
