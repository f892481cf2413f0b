#include "Platform/Observable.h"

Observable::~Observable() = default;
