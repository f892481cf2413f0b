#include "Platform/Agent/ServiceManager.h"

ServiceManager::~ServiceManager() = default;
