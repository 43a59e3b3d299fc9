// The program's allocator, in the place of the library's.
#include "tests/platform/dialogs/MemoryWatch.h"

#include <cstdlib>
#include <new>

namespace ovrin::testing {

namespace {

const void *watched = nullptr;
void (*onFreeOfWatched)() = nullptr;

void Free(void *memory) {
    if (memory != nullptr && memory == watched) {
        watched = nullptr;
        onFreeOfWatched();
    }
    std::free(memory);
}

} // namespace

void WatchMemory(const void *memory, void (*onFree)()) {
    watched = memory;
    onFreeOfWatched = onFree;
}

} // namespace ovrin::testing

void *operator new(std::size_t size) {
    if (void *const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}
void operator delete(void *memory) noexcept {
    ovrin::testing::Free(memory);
}
void operator delete(void *memory, std::size_t /*size*/) noexcept {
    ovrin::testing::Free(memory);
}
