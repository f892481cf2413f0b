#include "Foundation/Observable.h"

Observable::~Observable() = default;
