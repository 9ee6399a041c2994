#pragma once

#include <cstddef>

namespace vd::pool {

// Model objects (collection items, lists, condition nodes) come and go by the dozen with every
// statement parsed. The general allocator keeps only a few freed blocks of one size at hand,
// so most of a statement's objects went back through its slower paths when the model was
// cleared and came from them again at the next parse. Blocks freed here are kept per thread
// and size for the next object of that size.
// Builds with the address sanitizer pass every call straight to the global operators, so that
// a use after free is still reported.
void* Allocate(std::size_t size);
void Release(void* block, std::size_t size) noexcept;
// How many blocks the calling thread keeps for objects of size bytes (for tests).
std::size_t KeptBlocks(std::size_t size);
// The bytes of all blocks the calling thread keeps: held from the heap, but by no object.
std::size_t KeptBytes();
// Whether blocks are kept at all (not with the address sanitizer).
bool Enabled();

} // namespace vd::pool

// Class-level operators that take a class's objects from the pool; its destructor must be
// virtual where objects are deleted through a base, so that the size passed back is right.
#define VD_POOLED_OBJECT                                                                           \
    static void* operator new(std::size_t size) { return ::vd::pool::Allocate(size); }             \
    static void operator delete(void* block, std::size_t size) noexcept                            \
    {                                                                                              \
        ::vd::pool::Release(block, size);                                                          \
    }
