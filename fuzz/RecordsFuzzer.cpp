#include "Foundation/Json.h"
#include "Fuzzing.h"
#include "Persistence/Persistence.h"
#include "Planning/Planning.h"

/// The five small files and the planning root: anything invalid gives the default, and what is loaded
/// survives a save.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = inputBytes(data, size);
    const bool isValid = Json::Document::parse(bytes).has_value();
    const OneFile input(bytes);
    const auto typeface = Persistence::loadTypeface();
    const bool greenScreen = Persistence::loadGreenScreen();
    const auto terminal = Persistence::loadTerminalBackend();
    const auto updates = Persistence::loadUpdatesConfig();
    const auto root = Planning::loadPlanningConfig();
    MUST(greenScreen == Persistence::loadDemoMode());
    MUST(isValid || (typeface == TypefaceOption::jetbrainsMono && !greenScreen));
    MUST(isValid ||
         (terminal == TerminalBackendOption::iterm && updates == Persistence::UpdatesConfig() && !root));

    MUST(Persistence::saveTypeface(rawValue(typeface)) && Persistence::loadTypeface() == typeface);
    MUST(Persistence::saveGreenScreen(greenScreen) && Persistence::loadGreenScreen() == greenScreen);
    MUST(Persistence::saveTerminalBackend(rawValue(terminal)) &&
         Persistence::loadTerminalBackend() == terminal);
    MUST(Persistence::saveUpdatesConfig(updates) && Persistence::loadUpdatesConfig() == updates);
    MUST(Planning::save({root}) && Planning::loadPlanningConfig() == root);
    return 0;
}
