#pragma once

#include "Screenshots.h"

/// Each page of the window in each state worth looking at.
std::vector<Screenshot> pageScreenshots();
