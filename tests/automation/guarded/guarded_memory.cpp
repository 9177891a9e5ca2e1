// SPDX-License-Identifier: MIT
// operator new and delete of a library that is under test: of some blocks any access behind their
// end, or after they were freed, ends the program there and then. Each of these ends where a page
// that nobody may touch begins, and its own page is not to be touched either once it is free. The
// others come from the heap. One block that a test chooses is not to be had.
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <windows.h>

namespace {

constexpr std::size_t page = 4096;
constexpr std::size_t slots = 12000; // the system bears some ten thousands of such pages
constexpr std::size_t slotSize = 5 * page;
constexpr unsigned oneOf = 4; // blocks is guarded

class GuardedBlocks {
  public:
    void* take(std::size_t size, std::size_t alignment) {
        if (size > slotSize - 2 * page || alignment > 64 || turn_++ % oneOf != 0)
            return nullptr;
        const Locked locked(lock_);
        if (area_ == nullptr && !reserve())
            return nullptr;
        if (free_ == 0)
            return nullptr;
        // The one that was freed first: what was freed lately stays out of bounds.
        const std::uint32_t slot = queue_[first_];
        first_ = (first_ + 1) % slots;
        --free_;
        std::byte* const begin = area_ + slot * slotSize;
        const std::size_t pages = (size + page - 1) / page + (size == 0 ? 1 : 0);
        std::byte* const end = begin + slotSize - page;
        if (VirtualAlloc(end - pages * page, pages * page, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
            giveBack(slot);
            return nullptr;
        }
        // Up to the edge as far as the alignment lets it; a pattern in what is left tells at the
        // end.
        const std::size_t room = (size + alignment - 1) / alignment * alignment;
        std::byte* const block = end - (room == 0 ? alignment : room);
        std::memset(end - pages * page, filler, pages * page);
        sizes_[slot] = static_cast<std::uint32_t>(size);
        return block;
    }

    // False where the block is none of these.
    bool release(void* block) {
        auto* const place = static_cast<std::byte*>(block);
        if (area_ == nullptr || place < area_ || place >= area_ + slots * slotSize)
            return false;
        const auto slot =
            static_cast<std::uint32_t>((place - area_) / static_cast<std::ptrdiff_t>(slotSize));
        std::byte* const end = area_ + slot * slotSize + slotSize - page;
        if (sizes_[slot] == freed)
            fail("freed twice");
        for (std::byte* rest = place + sizes_[slot]; rest != end; ++rest)
            if (*rest != std::byte{filler})
                fail("written behind its end");
        const std::size_t pages = (static_cast<std::size_t>(end - place) + page - 1) / page;
        VirtualFree(end - pages * page, pages * page, MEM_DECOMMIT);
        const Locked locked(lock_);
        sizes_[slot] = freed;
        giveBack(slot);
        return true;
    }

  private:
    static constexpr std::uint32_t freed = 0xFFFFFFFF;
    static constexpr int filler = 0xCB;

    class Locked {
      public:
        explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
        ~Locked() { ReleaseSRWLockExclusive(&lock_); }
        Locked(const Locked&) = delete;
        Locked& operator=(const Locked&) = delete;

      private:
        SRWLOCK& lock_;
    };

    bool reserve() {
        area_ = static_cast<std::byte*>(
            VirtualAlloc(nullptr, slots * slotSize, MEM_RESERVE, PAGE_NOACCESS));
        for (std::uint32_t slot = 0; area_ != nullptr && slot < slots; ++slot) {
            queue_[slot] = slot;
            sizes_[slot] = freed;
        }
        free_ = slots;
        return area_ != nullptr;
    }
    void giveBack(std::uint32_t slot) {
        queue_[(first_ + free_) % slots] = slot;
        ++free_;
    }
    [[noreturn]] static void fail(const char* what) {
        std::fprintf(stderr, "A block of memory was %s.\n", what);
        std::fflush(stderr);
        std::abort();
    }

    SRWLOCK lock_ = SRWLOCK_INIT;
    std::byte* area_ = nullptr;
    std::size_t first_ = 0;
    std::size_t free_ = 0;
    std::atomic<unsigned> turn_{0};
    std::array<std::uint32_t, slots> queue_{};
    std::array<std::uint32_t, slots> sizes_{};
};

constinit GuardedBlocks blocks;

std::atomic<long> wanted{0}; // blocks, since a test last said which one fails
std::atomic<long> failing{0};

void* allocated(std::size_t size, std::size_t alignment) {
    if (++wanted == failing)
        return nullptr;
    if (void* const guarded = blocks.take(size, alignment))
        return guarded;
    return _aligned_malloc(size == 0 ? 1 : size, alignment);
}

void* needed(std::size_t size, std::size_t alignment) {
    void* const block = allocated(size, alignment);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void release(void* block) {
    if (block != nullptr && !blocks.release(block))
        _aligned_free(block);
}

constexpr std::size_t usual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

std::size_t bytes(std::align_val_t alignment) {
    return static_cast<std::size_t>(alignment);
}

} // namespace

// The block after so many is not to be had; 0: each of them is. How many there were since then.
extern "C" __declspec(dllexport) long STDAPICALLTYPE VkrFailBlock(long number) {
    const long before = wanted.exchange(0);
    failing = number;
    return before;
}

void* operator new(std::size_t size) {
    return needed(size, usual);
}
void* operator new[](std::size_t size) {
    return needed(size, usual);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return needed(size, bytes(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return needed(size, bytes(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocated(size, usual);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocated(size, usual);
}
void operator delete(void* block) noexcept {
    release(block);
}
void operator delete[](void* block) noexcept {
    release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    release(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
    release(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
    release(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
    release(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
    release(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    release(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    release(block);
}
