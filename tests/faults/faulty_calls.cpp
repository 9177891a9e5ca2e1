// SPDX-License-Identifier: MIT
#include "tests/faults/faulty_calls.hpp"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

// The names of the functions for large files stand beside the others.
#undef open
#undef open64
#undef pread
#undef pread64
#undef pwrite
#undef pwrite64
#undef ftruncate
#undef ftruncate64
#undef mmap
#undef mmap64
#undef fcntl
#undef fcntl64

namespace {

using vkr::test::FaultPlan;
using vkr::test::FileEvent;
using vkr::test::SystemCall;

// Plain memory, since the functions below run before anything is set up.
std::atomic<bool> isFailing = false;
std::atomic<bool> isRecording = false;
std::atomic<int> count = 0;
// Without a look-up that would ask for memory.
[[gnu::tls_model("initial-exec")]] thread_local bool isInside = false;

struct State {
    std::mutex mutex;
    FaultPlan plan;
    std::string folder; // that is recorded
    std::vector<FileEvent> events;
};
State& state() {
    static State* const one = new State;
    return *one;
}

class Inside {
  public:
    Inside() { isInside = true; }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;
    ~Inside() { isInside = false; }
};

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

std::string pathOf(int file) {
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    std::array<char, PATH_MAX> path{};
    const ssize_t size = readlink(link.c_str(), path.data(), path.size());
    return {path.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
}

bool isBelow(const std::string& folder, std::string_view path) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

bool isOfPlan(SystemCall call) {
    return isFailing && !isInside && state().plan.call == call;
}

// Whether the call is one that fails; sets the error.
bool failsNow() {
    const FaultPlan& plan = state().plan;
    const int number = ++count;
    if (number < plan.from || number > plan.to)
        return false;
    errno = plan.error;
    return true;
}
bool fails(SystemCall call, const char* path) {
    if (!isOfPlan(call))
        return false;
    const Inside inside;
    return isBelow(state().plan.folder, path) && failsNow();
}
bool fails(SystemCall call, int file) {
    if (!isOfPlan(call) || file < 0)
        return false;
    const Inside inside;
    return isBelow(state().plan.folder, pathOf(file)) && failsNow();
}

void record(FileEvent::Kind kind, const std::string& path, std::int64_t offset = 0,
            std::string bytes = {}) {
    const std::lock_guard lock(state().mutex);
    if (isBelow(state().folder, path))
        state().events.push_back({kind, path, offset, std::move(bytes)});
}
template <typename... Values>
void recordOf(FileEvent::Kind kind, int file, Values... values) {
    if (!isRecording || isInside)
        return;
    const Inside inside;
    record(kind, pathOf(file), values...);
}

int openFile(const char* name, const char* path, int flags, mode_t mode) {
    if (fails(SystemCall::open, path))
        return -1;
    static const auto real = next<int (*)(const char*, int, ...)>(name);
    struct stat status {};
    const bool isNew =
        isRecording && !isInside && (flags & O_CREAT) != 0 && lstat(path, &status) != 0;
    const int file = real(path, flags, mode);
    if (isNew && file >= 0)
        recordOf(FileEvent::Kind::create, file);
    return file;
}

mode_t modeOf(int flags, va_list rest) {
    return (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(rest, int)) : 0;
}

ssize_t writeAt(const char* name, int file, const void* bytes, std::size_t size, off_t offset) {
    if (fails(SystemCall::write, file))
        return -1;
    static const auto real = next<ssize_t (*)(int, const void*, std::size_t, off_t)>(name);
    const ssize_t written = real(file, bytes, size, offset);
    if (written > 0)
        recordOf(FileEvent::Kind::write, file, static_cast<std::int64_t>(offset),
                 std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(written)));
    return written;
}

ssize_t readAt(const char* name, int file, void* bytes, std::size_t size, off_t offset) {
    if (fails(SystemCall::read, file))
        return -1;
    static const auto real = next<ssize_t (*)(int, void*, std::size_t, off_t)>(name);
    return real(file, bytes, size, offset);
}

int cutAt(const char* name, int file, off_t size) {
    if (fails(SystemCall::truncate, file))
        return -1;
    static const auto real = next<int (*)(int, off_t)>(name);
    const int result = real(file, size);
    if (result == 0)
        recordOf(FileEvent::Kind::truncate, file, static_cast<std::int64_t>(size), std::string());
    return result;
}

int synchronize(const char* name, int file) {
    if (fails(SystemCall::sync, file))
        return -1;
    const auto real = next<int (*)(int)>(name);
    const int result = real(file);
    if (result == 0)
        recordOf(FileEvent::Kind::sync, file);
    return result;
}

int control(const char* name, int file, int command, void* argument) {
    const bool isLock = command == F_SETLK || command == F_SETLKW;
    if (isLock && static_cast<const struct flock*>(argument)->l_type != F_UNLCK &&
        fails(SystemCall::lock, file))
        return -1;
    static const auto real = next<int (*)(int, int, ...)>(name);
    return real(file, command, argument);
}

void* map(const char* name, void* place, std::size_t size, int protection, int flags, int file,
          off_t offset) {
    if (fails(SystemCall::map, file))
        return MAP_FAILED;
    static const auto real = next<void* (*)(void*, std::size_t, int, int, int, off_t)>(name);
    return real(place, size, protection, flags, file, offset);
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return openFile("open", path, flags, mode);
}
int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return openFile("open64", path, flags, mode);
}
ssize_t read(int file, void* bytes, std::size_t size) {
    if (fails(SystemCall::read, file))
        return -1;
    static const auto real = next<ssize_t (*)(int, void*, std::size_t)>("read");
    return real(file, bytes, size);
}
ssize_t pread(int file, void* bytes, std::size_t size, off_t offset) {
    return readAt("pread", file, bytes, size, offset);
}
ssize_t pread64(int file, void* bytes, std::size_t size, off64_t offset) {
    return readAt("pread64", file, bytes, size, offset);
}
ssize_t write(int file, const void* bytes, std::size_t size) {
    if (fails(SystemCall::write, file))
        return -1;
    static const auto real = next<ssize_t (*)(int, const void*, std::size_t)>("write");
    return real(file, bytes, size);
}
ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t offset) {
    return writeAt("pwrite", file, bytes, size, offset);
}
ssize_t pwrite64(int file, const void* bytes, std::size_t size, off64_t offset) {
    return writeAt("pwrite64", file, bytes, size, offset);
}
int ftruncate(int file, off_t size) noexcept {
    return cutAt("ftruncate", file, size);
}
int ftruncate64(int file, off64_t size) noexcept {
    return cutAt("ftruncate64", file, size);
}
int fsync(int file) {
    return synchronize("fsync", file);
}
int fdatasync(int file) {
    return synchronize("fdatasync", file);
}
int unlink(const char* path) noexcept {
    if (fails(SystemCall::unlink, path))
        return -1;
    static const auto real = next<int (*)(const char*)>("unlink");
    const int result = real(path);
    if (result == 0 && isRecording && !isInside) {
        const Inside inside;
        record(FileEvent::Kind::unlink, path);
    }
    return result;
}
int fcntl(int file, int command, ...) {
    va_list rest;
    va_start(rest, command);
    void* argument = va_arg(rest, void*);
    va_end(rest);
    return control("fcntl", file, command, argument);
}
int fcntl64(int file, int command, ...) {
    va_list rest;
    va_start(rest, command);
    void* argument = va_arg(rest, void*);
    va_end(rest);
    return control("fcntl64", file, command, argument);
}
void* mmap(void* place, std::size_t size, int protection, int flags, int file,
           off_t offset) noexcept {
    return map("mmap", place, size, protection, flags, file, offset);
}
void* mmap64(void* place, std::size_t size, int protection, int flags, int file,
             off64_t offset) noexcept {
    return map("mmap64", place, size, protection, flags, file, offset);
}

// The sanitizers have an allocation of their own.
#if !defined(__SANITIZE_ADDRESS__)
void* __libc_malloc(std::size_t size);                // NOLINT: the name is the system's
void* __libc_realloc(void* memory, std::size_t size); // NOLINT

static bool isCalledByDatabase(const void* caller) {
    const Inside inside;
    Dl_info library{};
    return dladdr(caller, &library) != 0 && library.dli_fname != nullptr &&
           std::strstr(library.dli_fname, "libsqlite3") != nullptr;
}
void* malloc(std::size_t size) noexcept {
    if (isOfPlan(SystemCall::allocate) && isCalledByDatabase(__builtin_return_address(0)) &&
        failsNow())
        return nullptr;
    return __libc_malloc(size);
}
void* realloc(void* memory, std::size_t size) noexcept {
    if (isOfPlan(SystemCall::allocate) && isCalledByDatabase(__builtin_return_address(0)) &&
        failsNow())
        return nullptr;
    return __libc_realloc(memory, size);
}
#endif

} // extern "C"

namespace vkr::test {

void failCalls(const FaultPlan& plan) {
    state().plan = plan;
    count = 0;
    isFailing = true;
}

int stopFailing() {
    isFailing = false;
    return count;
}

void startRecording(const std::string& folder) {
    state().folder = folder;
    state().events.clear();
    isRecording = true;
}

void recordNote() {
    const std::lock_guard lock(state().mutex);
    state().events.push_back({FileEvent::Kind::note, {}, 0, {}});
}

std::vector<FileEvent> stopRecording() {
    isRecording = false;
    return std::move(state().events);
}

} // namespace vkr::test
