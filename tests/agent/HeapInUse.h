#pragma once

#include <cstddef>

/// The bytes that the process holds on its heap.
std::size_t heapInUse();
