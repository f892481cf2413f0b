#pragma once

#include "Screenshots.h"

/// Each page of the window in each state worth looking at, and the questions it asks.
std::vector<Screenshot> pageScreenshots();
