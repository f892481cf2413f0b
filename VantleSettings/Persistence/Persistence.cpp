#include "Persistence/Persistence.h"

#include "Persistence/HomeFile.h"

using namespace Qt::StringLiterals;

namespace
{

const QString typefaceFile = u".vantle/typeface.json"_s;
const QString greenScreenFile = u".vantle/green-screen.json"_s;
const QString terminalBackendFile = u".vantle/terminal-backend.json"_s;
const QString updatesFile = u".vantle/updates.json"_s;
const QString demoModeFile = u".vantle/demo-mode.json"_s;

/// The record in the file, as `decode` makes it of the file's top level; nothing for anything but a whole
/// one.
template <class Decode>
auto record(const QString &file, Decode decode) -> decltype(decode(Json::Value()))
{
    const auto document = HomeFile::read(file);
    return document ? decode(document->root()) : std::nullopt;
}

std::optional<QString> text(const QString &file, std::string_view member)
{
    return record(file, [member](Json::Value top) { return top[member].text(); });
}

std::optional<bool> boolean(const QString &file, std::string_view member)
{
    return record(file, [member](Json::Value top) { return top[member].boolean(); });
}

std::optional<Persistence::UpdatesConfig> updatesConfig(Json::Value top)
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
    return typefaceOption(text(typefaceFile, "name").value_or(QString()))
        .value_or(TypefaceOption::jetbrainsMono);
}

bool Persistence::loadGreenScreen()
{
    return boolean(greenScreenFile, "enabled").value_or(false);
}

TerminalBackendOption Persistence::loadTerminalBackend()
{
    return terminalBackendOption(text(terminalBackendFile, "backend").value_or(QString()))
        .value_or(TerminalBackendOption::iterm);
}

Persistence::UpdatesConfig Persistence::loadUpdatesConfig()
{
    return record(updatesFile, updatesConfig).value_or(UpdatesConfig());
}

bool Persistence::loadDemoMode()
{
    return boolean(demoModeFile, "enabled").value_or(false);
}

bool Persistence::saveTypeface(const QString &name)
{
    return HomeFile::write(typefaceFile, Json::Object{{u"name"_s, name}});
}

bool Persistence::saveGreenScreen(bool enabled)
{
    return HomeFile::write(greenScreenFile, Json::Object{{u"enabled"_s, enabled}});
}

bool Persistence::saveTerminalBackend(const QString &backend)
{
    return HomeFile::write(terminalBackendFile, Json::Object{{u"backend"_s, backend}});
}

bool Persistence::saveUpdatesConfig(const UpdatesConfig &config)
{
    Json::Object record{{u"automatic"_s, config.automatic}};
    if (config.manifestURL)
        record.emplace_back(u"manifest_url"_s, *config.manifestURL);
    return HomeFile::write(updatesFile, record);
}
