// SPDX-License-Identifier: MIT
#include "tests/support/failing_memory.hpp"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

int allocationsLeft = 0; // 0: none fails
bool failed = false;
bool failsOn = false;

} // namespace

void* operator new(std::size_t size) {
    if (allocationsLeft > 0 && --allocationsLeft == 0) {
        failed = true;
        allocationsLeft = failsOn ? 1 : 0;
        throw std::bad_alloc();
    }
    if (void* place = std::malloc(size == 0 ? 1 : size))
        return place;
    throw std::bad_alloc();
}
// Where the sanitizers are, it would be theirs, and not fit what frees it.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* place) noexcept {
    std::free(place);
}
void operator delete(void* place, std::size_t /*size*/) noexcept {
    std::free(place);
}

namespace vkr {

FailingMemory::FailingMemory(int nth, Fails fails) {
    failed = false;
    failsOn = fails == Fails::fromThenOn;
    allocationsLeft = nth;
}
FailingMemory::~FailingMemory() {
    allocationsLeft = 0;
}
bool FailingMemory::hasFailed() const {
    return failed;
}

} // namespace vkr
