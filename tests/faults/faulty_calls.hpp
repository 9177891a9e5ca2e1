// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vkr::test {

// Calls of the system on the files of one folder, made to fail or written down. The library stands
// before that of the system, so that every other library of the program calls it instead.
enum class SystemCall { open, read, write, sync, truncate, unlink, lock, map, allocate };

struct FaultPlan {
    std::string folder; // as the system names it, without links
    SystemCall call = SystemCall::write;
    int from = 1; // counted from when the plan is made
    int to = 1;
    int error = 5; // EIO
};

// Of memory, the calls of the database's library count.
void failCalls(const FaultPlan& plan);
// How many of these calls there were; all of them work from here on.
int stopFailing();

// What happened to a file.
struct FileEvent {
    enum class Kind { create, write, truncate, sync, unlink, note } kind;
    std::string path;
    std::int64_t offset = 0; // of a truncation, the size
    std::string bytes;
};

void startRecording(const std::string& folder);
void recordNote(); // of the test's own
std::vector<FileEvent> stopRecording();

} // namespace vkr::test
