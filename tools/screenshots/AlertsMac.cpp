#include "Alerts.h"

std::vector<Screenshot> alertScreenshots()
{
    return {};
}
