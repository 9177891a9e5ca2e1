// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_csv.hpp"

#include <condition_variable>
#include <deque>
#include <exception>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vkr {

// Reads the companies of a folder on a thread of its own, a few ahead of who takes them: while one
// is saved the next ones are read.
//
// What may be true together: `mutex_` guards what was read, the failure and whether it was given
// up; there are at most so many companies that nobody has taken; none is read behind a failure.
class ReadAhead {
  public:
    ReadAhead(std::filesystem::path folder, const std::vector<std::string>& prefixes)
        : folder_(std::move(folder)), prefixes_(prefixes), thread_([this] { read(); }) {}
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;
    ~ReadAhead(); // what nobody took is given up

    // In the order of the prefixes, as often as there are any. Passes on what reading throws.
    [[nodiscard]] CsvImport next();

  private:
    static constexpr std::size_t most = 32; // companies in memory that nobody has taken

    void read();

    const std::filesystem::path folder_;
    const std::vector<std::string> prefixes_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<CsvImport> read_;
    std::exception_ptr failure_;
    bool isGivenUp_ = false;
    std::thread thread_; // the last one: it uses the others
};

} // namespace vkr
