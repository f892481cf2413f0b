#pragma once

#include <QtGlobal>

/// How often a test that rolls dice does so: rarely among all other tests, often in its long form.
inline int rounds(int rarely, int often)
{
    return qEnvironmentVariableIsSet("VANTLE_LONG_TESTS") ? often : rarely;
}
