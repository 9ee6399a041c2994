#include "core/VdObjectPool.h"

#include <cstdint>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define VD_POOL_OFF 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VD_POOL_OFF 1
#endif
#endif

namespace vd::pool {

#ifdef VD_POOL_OFF

void* Allocate(std::size_t size) { return ::operator new(size); }

void Release(void* block, std::size_t) noexcept { ::operator delete(block); }

std::size_t KeptBlocks(std::size_t) { return 0; }

std::size_t KeptBytes() { return 0; }

bool Enabled() { return false; }

#else

namespace {

constexpr std::size_t Granule = 16;
// Blocks of up to 640 bytes are kept: every model object is smaller.
constexpr std::size_t Classes = 41;
// Enough for the objects of a few large statements; beyond, blocks go back to the heap.
constexpr std::uint32_t MaxKept = 1024;

struct TFreeBlock {
    TFreeBlock* Next;
};

std::size_t ClassOf(std::size_t size) { return (size + Granule - 1) / Granule; }

struct TCache {
    TFreeBlock* Head[Classes] = {};
    std::uint32_t Count[Classes] = {};
    ~TCache();
};

thread_local TCache Cache;
// Set once the thread's cache is gone: objects freed later in the thread's exit (or, on the
// main thread, by static destructors) go straight back to the heap.
thread_local bool CacheGone = false;

TCache::~TCache()
{
    for (TFreeBlock*& head : Head)
        while (head) {
            TFreeBlock* next = head->Next;
            ::operator delete(head);
            head = next;
        }
    CacheGone = true;
}

} // namespace

void* Allocate(std::size_t size)
{
    const std::size_t cls = ClassOf(size);
    if (cls >= Classes || CacheGone)
        return ::operator new(size);
    TCache& cache = Cache;
    if (TFreeBlock* block = cache.Head[cls]) {
        cache.Head[cls] = block->Next;
        --cache.Count[cls];
        return block;
    }
    // The whole class's size: a block kept here may serve any object of its class later.
    const std::size_t classSize = cls * Granule;
    return ::operator new(classSize);
}

void Release(void* block, std::size_t size) noexcept
{
    if (!block)
        return;
    const std::size_t cls = ClassOf(size);
    if (cls >= Classes || CacheGone) {
        ::operator delete(block);
        return;
    }
    TCache& cache = Cache;
    if (cache.Count[cls] >= MaxKept) {
        ::operator delete(block);
        return;
    }
    auto* free = static_cast<TFreeBlock*>(block);
    free->Next = cache.Head[cls];
    cache.Head[cls] = free;
    ++cache.Count[cls];
}

std::size_t KeptBlocks(std::size_t size)
{
    const std::size_t cls = ClassOf(size);
    return cls < Classes && !CacheGone ? Cache.Count[cls] : 0;
}

std::size_t KeptBytes()
{
    if (CacheGone)
        return 0;
    std::size_t bytes = 0;
    for (std::size_t cls = 0; cls < Classes; ++cls)
        bytes += Cache.Count[cls] * cls * Granule;
    return bytes;
}

bool Enabled() { return true; }

#endif

} // namespace vd::pool
