// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string>

namespace vkr {

enum class OpenMode {
    existing, // a file that is missing stays missing
    reading,  // the same, but one that can't be written is opened, too, and read as it is
    create,   // makes the file, and its folder, where there is none; opens one that is there.
              // Of a database on a server it makes the tables; the database has to be there.
};

struct StoreOptions {
    // Named to others as the one who saved; empty: the user of this computer.
    std::string user;
    // How long to wait for another one who is writing.
    std::chrono::milliseconds patience{2000};
    // Every change is made, and answered as ever, but taken back at once. Nothing is brought up to
    // date either, nor made: what is older or missing is not opened.
    bool isRehearsal = false;
};

} // namespace vkr
