#include "Foundation/Json.h"
#include "Fuzzing.h"
#include "Shortcuts/Shortcuts.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = inputBytes(data, size);
    const OneFile file(bytes);
    const auto bindings = Shortcuts::load();
    MUST(!bindings || Json::Document::parse(bytes));
    MUST(!bindings || bindings->size() == allShortcutActions.size());
    const Shortcuts shortcuts;
    MUST(shortcuts.bindings.value() == bindings.value_or(Shortcuts::defaults()));
    shortcuts.save();
    MUST(Shortcuts::load() == shortcuts.bindings.value());
    return 0;
}
