// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"
#include "record/ivkr_company.hpp"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// Where files with unsaved changes are, and how their names begin.
struct UnsavedPlace {
    std::string folder;
    std::string prefix; // "companies.vkr.unsaved-"
};

// What unsaved changes are changes of.
struct UnsavedCompany {
    std::optional<std::int64_t> id; // nothing: never saved
    std::int64_t revision = 0;      // that it was loaded with
    std::uint64_t digest = 0;       // of the record as it was then: digestOf; 0: not known
    std::string title;              // for people

    friend bool operator==(const UnsavedCompany&, const UnsavedCompany&) = default;
};

[[nodiscard]] std::uint64_t digestOf(const iVKR_Company& company);

// The unsaved changes of one window in a file, for as long as there are any. Each change is on the
// disk when its call returns. The file is locked by the system until the program ends, however it
// ends; no file that is there is ever written to.
//
// What may be true together: where there is a file it has all groups; the paths are those of it and
// of the ones that have failed. Without groups there is none of them, but for those that have
// failed.
class UnsavedChanges {
  public:
    UnsavedChanges(UnsavedPlace place, UnsavedCompany company);
    ~UnsavedChanges(); // the file stays
    UnsavedChanges(const UnsavedChanges&) = delete;
    UnsavedChanges& operator=(const UnsavedChanges&) = delete;

    // Why they are not on the disk, for people; nothing where they are. A file that fails is
    // written to no more: the next change begins a new one, with all that came before.
    [[nodiscard]] std::optional<std::string> add(const ChangeGroup& group);
    [[nodiscard]] std::optional<std::string> takeBackLast();
    // Once the company is saved, or its changes are given up: the file goes.
    void remove();

  private:
    class File;
    [[nodiscard]] std::optional<std::string> append(const std::string& payload);
    void begin();

    UnsavedPlace place_;
    UnsavedCompany company_;
    std::vector<ChangeGroup> groups_;
    std::vector<std::string> paths_; // of all files that were begun
    std::unique_ptr<File> file_;
    std::vector<std::unique_ptr<File>> failed_; // locked to the end
};

// A file that no program is writing any more.
struct FoundChanges {
    std::string path;
    UnsavedCompany company;
    std::vector<ChangeGroup> groups;
    // What lies behind the groups can't be read; nor can what it is of, where there is no title.
    bool isDamaged = false;
    std::shared_ptr<void> locked; // for as long as one of these lives nobody else finds it
};

// Whatever can be read of what programs have left behind; no file is changed. A group that was
// being written when its program ended is left out without a word.
[[nodiscard]] std::vector<FoundChanges> findUnsavedChanges(const UnsavedPlace& place);
void removeFound(const FoundChanges& found);
// In a new file in its place, once the others are somewhere else; none where nothing is left. Why
// it is not there, for people: then what was found is as it was.
[[nodiscard]] std::optional<std::string> keepOnly(const FoundChanges& found,
                                                  const std::vector<ChangeGroup>& left,
                                                  const UnsavedPlace& place);

} // namespace vkr
