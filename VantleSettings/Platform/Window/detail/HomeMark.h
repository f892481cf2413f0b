#pragma once

#include <QString>

/// A short hash of the user's home directory, for the names of D-Bus services and files: lower-case letters
/// and digits.
QString homeMark();
