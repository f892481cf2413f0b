#include "Fuzzing.h"
#include "StraightforwardManifest.h"

/// Any text reads as the straightforward definition reads it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (const auto text = Text::decoded(inputBytes(data, size)))
        MUST(StraightforwardManifest::programsBlocks(*text) == StraightforwardManifest::blocks(*text));
    return 0;
}
