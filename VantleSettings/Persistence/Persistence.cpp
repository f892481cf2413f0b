#include "Persistence/Persistence.h"

#include "Persistence/HomeFile.h"
#include "Persistence/SharedFiles.h"

using namespace Qt::StringLiterals;

namespace
{

/// Makes a function that decodes a record of one member: a text or a boolean.
auto text(std::string_view member)
{
    return [member](const Json::Value &top) { return top[member].text(); };
}

auto boolean(std::string_view member)
{
    return [member](const Json::Value &top) { return top[member].boolean(); };
}

std::optional<Persistence::UpdatesConfig> updatesConfig(const Json::Value &top)
{
    const auto automatic = top["automatic"].boolean();
    const Json::Value address = top["manifest_url"];
    if (!automatic || !(address.isAbsent() || address.text()))
        return std::nullopt;
    return Persistence::UpdatesConfig{*automatic, address.text()};
}

} // namespace

TypefaceOption Persistence::loadTypeface()
{
    return typefaceOption(HomeFile::load(SharedFiles::typeface.path, text("name")).value_or(QString()))
        .value_or(TypefaceOption::jetbrainsMono);
}

bool Persistence::loadGreenScreen()
{
    return HomeFile::load(SharedFiles::greenScreen.path, boolean("enabled")).value_or(false);
}

TerminalBackendOption Persistence::loadTerminalBackend()
{
    return terminalBackendOption(
               HomeFile::load(SharedFiles::terminalBackend.path, text("backend")).value_or(QString()))
        .value_or(TerminalBackendOption::iterm);
}

Persistence::UpdatesConfig Persistence::loadUpdatesConfig()
{
    return HomeFile::load(SharedFiles::updates.path, updatesConfig).value_or(UpdatesConfig());
}

bool Persistence::loadDemoMode()
{
    return HomeFile::load(SharedFiles::demoMode.path, boolean("enabled")).value_or(false);
}

bool Persistence::saveTypeface(const QString &name)
{
    return HomeFile::save(SharedFiles::typeface.path, Json::Object{{u"name"_s, name}}, text("name"));
}

bool Persistence::saveGreenScreen(bool enabled)
{
    return HomeFile::save(SharedFiles::greenScreen.path, Json::Object{{u"enabled"_s, enabled}},
                          boolean("enabled"));
}

bool Persistence::saveTerminalBackend(const QString &backend)
{
    return HomeFile::save(SharedFiles::terminalBackend.path, Json::Object{{u"backend"_s, backend}},
                          text("backend"));
}

bool Persistence::saveUpdatesConfig(const UpdatesConfig &config)
{
    Json::Object record{{u"automatic"_s, config.automatic}};
    if (config.manifestURL)
        record.emplace_back(u"manifest_url"_s, *config.manifestURL);
    return HomeFile::save(SharedFiles::updates.path, record, updatesConfig);
}
