#pragma once

#include <cstddef>

/// The number of bytes that the process has allocated on its heap.
std::size_t heapInUse();
