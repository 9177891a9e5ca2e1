// SPDX-License-Identifier: MIT
#include "store/fault_text.hpp"

#include "store/store_failure.hpp"

namespace vkr {

namespace {

struct FaultText {
    StoreFault fault;
    const char* ofFile;
    const char* ofServer;
};

constexpr FaultText faultTexts[] = {
    {StoreFault::missing, " does not exist. Choose another file, or make a new one.",
     " does not exist on the server. Check the name, or have it made there."},
    {StoreFault::empty, " is empty.", " holds no companies yet; its tables are still to be made."},
    {StoreFault::locked,
     " is being written by another window or program. Nothing was changed; try again in a moment.",
     " is being changed by somebody else. Nothing was changed; try again in a moment."},
    {StoreFault::readOnly,
     " cannot be written: the file or its folder is read-only. Change that, or work on a copy in "
     "another folder.",
     " cannot be written: the server does not allow it to this user, or to nobody at present."},
    {StoreFault::full,
     " could not be written: the disk is full. It holds what it held before. Free some space and "
     "save again.",
     " could not be written: the disk of the server is full. It holds what it held before."},
    {StoreFault::notADatabase, " is not a company file. It was left as it is; choose another one.",
     " holds the tables of another program. It was left as it is; choose another one."},
    {StoreFault::newerSchema,
     " was written by a newer version of this program. It was left as it is; open it with that "
     "version.",
     " was brought up to date by a newer version of this program. It was left as it is; open it "
     "with that version."},
    {StoreFault::corrupt, " is damaged. Go on with a copy of it from before.",
     " is damaged on the server. Go on with a copy of it from before."},
    {StoreFault::conflict, " was changed by somebody else.", " was changed by somebody else."},
    {StoreFault::unreachable, " cannot be reached.",
     " cannot be reached. Nothing was changed; check the network and the server, and try again."},
    {StoreFault::denied, " may not be opened.",
     " did not let this user in. Check the user and the password."},
    {StoreFault::uncertain, " went away.",
     " went away while it was saving, and it is not known whether the save was done. Save again "
     "when the server is back; what was stored is not stored a second time."},
    {StoreFault::other, " could not be read or written.", " could not be read or written."},
};

} // namespace

StoreError describeFault(StoreFault fault, const StoreLocation& location,
                         const std::string& detail) {
    std::string message = location.name.toStdString();
    for (const FaultText& row : faultTexts)
        if (row.fault == fault)
            message += location.dialect->isFile ? row.ofFile : row.ofServer;
    if (!detail.empty())
        message += " (" + detail + ")";
    return {fault, message, std::nullopt};
}

void fail(StoreFault fault, const StoreLocation& location, const std::string& detail) {
    throw StoreFailure(describeFault(fault, location, detail));
}

} // namespace vkr
