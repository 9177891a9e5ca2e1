// SPDX-License-Identifier: MIT
// A library with nothing in it but what the compiler puts into each that is linked as ours is: its
// runtime, at work from the start.
#include <locale>
#include <stdexcept>
#include <string>

namespace {

const std::locale first;
thread_local int used = 0;

int useRuntime() {
    try {
        used += std::stoi("no number");
    } catch (const std::exception&) {
        ++used;
    }
    return used;
}
const int started = useRuntime();

} // namespace

extern "C" __declspec(dllexport) int VkrBareLibrary() {
    return started + useRuntime();
}
