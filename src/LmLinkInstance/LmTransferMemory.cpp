#include "LmTransferMemory.h"

#include <malloc.h>

namespace {

constexpr int kLargestHeapBlock = 32 << 20;
constexpr int kKeptFreeHeap = 64 << 20;

}  // namespace

bool LmTransferMemory::KeepTransferBuffersForReuse()
{
#if defined(M_MMAP_THRESHOLD) && defined(M_TRIM_THRESHOLD)
    return mallopt(M_MMAP_THRESHOLD, kLargestHeapBlock) == 1 && mallopt(M_TRIM_THRESHOLD, kKeptFreeHeap) == 1;
#else
    return false;
#endif
}
