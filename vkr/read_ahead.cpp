// SPDX-License-Identifier: MIT
#include "vkr/read_ahead.hpp"

#include <cassert>
#include <utility>

namespace vkr {

ReadAhead::~ReadAhead() {
    {
        const std::lock_guard lock(mutex_);
        isGivenUp_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

CsvImport ReadAhead::next() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !read_.empty() || failure_ != nullptr; });
    if (read_.empty())
        std::rethrow_exception(failure_);
    CsvImport import = std::move(read_.front());
    read_.pop_front();
    lock.unlock();
    changed_.notify_all();
    return import;
}

void ReadAhead::read() {
    try {
        for (const std::string& prefix : prefixes_) {
            CsvImport import = importCompany(folder_, prefix);
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return read_.size() < most || isGivenUp_; });
            if (isGivenUp_)
                return;
            read_.push_back(std::move(import));
            assert(read_.size() <= most && failure_ == nullptr);
            lock.unlock();
            changed_.notify_all();
        }
    } catch (...) {
        const std::lock_guard lock(mutex_);
        failure_ = std::current_exception();
        changed_.notify_all();
    }
}

} // namespace vkr
