#include "Platform/ServiceManager.h"

ServiceManager::~ServiceManager() = default;
