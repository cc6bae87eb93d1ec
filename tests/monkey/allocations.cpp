#include "monkey/allocations.h"

#include <atomic>
#include <cstdlib>
#include <new>

// All of the program's new and delete lead through the plain forms; the aligned ones are left out.
namespace {

std::atomic<std::size_t> alive{0};

} // namespace

void* operator new(std::size_t size)
{
    void* const piece = std::malloc(size == 0 ? 1 : size);
    if (piece == nullptr) throw std::bad_alloc{};
    ++alive;
    return piece;
}

void* operator new[](std::size_t size) { return operator new(size); }

void operator delete(void* piece) noexcept
{
    if (piece == nullptr) return;
    --alive;
    std::free(piece);
}

void operator delete(void* piece, std::size_t) noexcept { operator delete(piece); }
void operator delete[](void* piece) noexcept { operator delete(piece); }
void operator delete[](void* piece, std::size_t) noexcept { operator delete(piece); }

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    void* const piece = std::malloc(size == 0 ? 1 : size);
    if (piece != nullptr) ++alive;
    return piece;
}

void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* piece, const std::nothrow_t&) noexcept { operator delete(piece); }
void operator delete[](void* piece, const std::nothrow_t&) noexcept { operator delete(piece); }

namespace servopanel::monkey {

std::size_t allocationsAlive() { return alive; }

} // namespace servopanel::monkey
