#pragma once

#include "Screenshots.h"

/// The questions that pages ask, where these are widgets; none where they are the system's own alerts.
std::vector<Screenshot> alertScreenshots();
