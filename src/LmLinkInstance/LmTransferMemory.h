#pragma once

// How the process's allocator treats the buffers of large network transfers.
namespace LmTransferMemory {

// Qt's network layer receives into buffers as large as what the socket has
// queued, several megabytes while a fast transfer runs. By default glibc
// serves blocks that size as fresh mappings and gives freed heap back to the
// system above a threshold that starts low and rises only with the blocks it
// happens to see, so a download can pay a page fault for every 4 KiB it
// receives, more than the copying itself costs. Called once when the process
// starts: blocks up to 32 MiB come from the heap, and up to 64 MiB of freed
// heap is kept for the next transfer. Larger blocks (a whole file held for
// writing) are still mapped and returned when freed. False where the
// allocator is not glibc's or refused the settings.
bool KeepTransferBuffersForReuse();

}  // namespace LmTransferMemory
