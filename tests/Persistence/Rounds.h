#pragma once

#include <QtGlobal>

/// The number of rounds of a randomized test: few in ordinary runs, many in its long form.
inline int rounds(int fewRounds, int manyRounds)
{
    return qEnvironmentVariableIsSet("VANTLE_LONG_TESTS") ? manyRounds : fewRounds;
}
