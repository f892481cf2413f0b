#include "HeapInUse.h"

#if __has_include(<malloc.h>)
#include <malloc.h>
#else
#include <malloc/malloc.h>
#endif

#if defined(__has_feature)
#define HAS_SANITIZER (__has_feature(address_sanitizer) || __has_feature(thread_sanitizer))
#else
#define HAS_SANITIZER 0
#endif

#if HAS_SANITIZER
#include <sanitizer/allocator_interface.h>
#endif

std::size_t heapInUse()
{
#if HAS_SANITIZER
    return __sanitizer_get_current_allocated_bytes();
#elif __has_include(<malloc.h>)
    const auto heap = mallinfo2();
    return heap.uordblks + heap.hblkhd; // mapped blocks are counted separately
#else
    return mstats().bytes_used;
#endif
}
