#include "monkey/allocations.h"

#include <malloc.h>

#include <atomic>
#include <cerrno>
#include <cstddef>

// All of the program's memory leads through malloc, that of Qt and of what Qt uses as well, for which a count of new alone
// would miss every text and every picture. These stand in place of the C library's own, which they lead on to.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* piece, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* piece);
}

namespace {

std::atomic<std::size_t> alive{0};

void* counted(void* piece)
{
    if (piece != nullptr) alive.fetch_add(1, std::memory_order_relaxed);
    return piece;
}

} // namespace

extern "C" void* malloc(std::size_t size) noexcept { return counted(__libc_malloc(size)); }

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept
{
    return counted(__libc_calloc(count, size));
}

extern "C" void free(void* piece) noexcept
{
    if (piece == nullptr) return;
    alive.fetch_sub(1, std::memory_order_relaxed);
    __libc_free(piece);
}

extern "C" void* realloc(void* piece, std::size_t size) noexcept
{
    if (piece == nullptr) return malloc(size);
    if (size == 0) {
        free(piece);
        return nullptr;
    }
    return __libc_realloc(piece, size);
}

extern "C" void* memalign(std::size_t alignment, std::size_t size) noexcept
{
    return counted(__libc_memalign(alignment, size));
}

extern "C" void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return memalign(alignment, size);
}

extern "C" int posix_memalign(void** piece, std::size_t alignment, std::size_t size) noexcept
{
    void* const made = memalign(alignment, size);
    if (made == nullptr) return ENOMEM;
    *piece = made;
    return 0;
}

namespace servopanel::monkey {

std::size_t allocationsAlive() { return alive; }

} // namespace servopanel::monkey
