#pragma once

#include <QString>

/// A short mark of the user's home that may stand in names of the system: lower-case letters and digits,
/// equal for equal homes.
QString homeMark();
