// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <set>
#include <system_error>

namespace vkr {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view suffixes[] = {companySuffix, yearlySuffix, quarterlySuffix};

fs::path pathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string textOf(const fs::path& path) {
    const auto utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

// Of reading or writing where the system tells nothing.
std::string lastFault() {
    return std::generic_category().message(errno == 0 ? EIO : errno);
}

// Nothing where there is no such file. A file that is there and cannot be read is a problem.
std::optional<CsvText> readText(const fs::path& path, CsvImport& import) {
    std::error_code fault;
    const fs::file_status status = fs::status(path, fault);
    if (status.type() == fs::file_type::not_found)
        return std::nullopt;
    CsvText text{textOf(path.filename()), ""};
    if (fs::is_directory(status)) { // which not every standard library tells
        const std::string reason = std::generic_category().message(EISDIR);
        import.errors.push_back({text.file, 0, 0, "", "cannot be read: " + reason});
        return text;
    }
    // A pipe or a device would be waited for.
    if (fs::is_other(status)) {
        import.errors.push_back({text.file, 0, 0, "", "cannot be read: it is no file"});
        return text;
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    // By the stream, which keeps to itself what its buffer throws, as for a folder.
    std::array<char, 1 << 14> block;
    while (file.read(block.data(), block.size()) || file.gcount() > 0)
        text.text.append(block.data(), static_cast<std::size_t>(file.gcount()));
    if (!file.is_open() || file.bad())
        import.errors.push_back({text.file, 0, 0, "", "cannot be read: " + lastFault()});
    return text;
}

bool writeText(const fs::path& path, const std::string& text) {
    errno = 0;
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    return !file.fail();
}

// The files beside the places they are meant for; what was not put in place is taken away again.
class PendingFiles {
  public:
    PendingFiles() = default;
    PendingFiles(const PendingFiles&) = delete;
    PendingFiles& operator=(const PendingFiles&) = delete;
    ~PendingFiles() {
        std::error_code ignored;
        for (const auto& [temporary, place] : files_)
            fs::remove(temporary, ignored);
    }

    // An error message, or "".
    std::string add(const fs::path& place, const std::string& text) {
        std::error_code ignored;
        fs::path temporary = place;
        for (int number = 1;; ++number) {
            temporary.replace_filename(
                pathOf("." + textOf(place.filename()) + "." + std::to_string(number) + ".part"));
            if (!fs::exists(temporary, ignored))
                break;
        }
        files_.emplace_back(temporary, place);
        return writeText(temporary, text) ? ""
                                          : textOf(place) + " could not be written: " + lastFault();
    }

    std::string putInPlace() {
        // Better to know before the first file is replaced.
        for (const auto& [temporary, place] : files_)
            if (std::string reason = whyNotReplaced(place); !reason.empty())
                return reason;
        while (!files_.empty()) {
            std::error_code fault;
            const auto& [temporary, place] = files_.front();
            fs::rename(temporary, place, fault);
            if (fault)
                return textOf(place) + " could not be replaced: " + fault.message();
            files_.erase(files_.begin());
        }
        return "";
    }

  private:
    std::vector<std::pair<fs::path, fs::path>> files_;
};

} // namespace

std::vector<fs::path> csvFiles(const fs::path& folder, std::string_view prefix) {
    std::vector<fs::path> files;
    for (const auto suffix : suffixes)
        files.push_back(folder / pathOf(std::string(prefix) + std::string(suffix)));
    return files;
}

CsvImport importCompany(const fs::path& folder, std::string_view prefix) {
    const auto name = [&](std::string_view suffix) {
        return std::string(prefix) + std::string(suffix);
    };
    CsvImport reading;
    const auto company = readText(folder / pathOf(name(companySuffix)), reading);
    auto yearly = readText(folder / pathOf(name(yearlySuffix)), reading);
    auto quarterly = readText(folder / pathOf(name(quarterlySuffix)), reading);
    if (!company)
        reading.errors.push_back({name(companySuffix), 0, 0, "", "there is no such file"});
    if (!reading.errors.empty())
        return reading;

    CsvImport import = importCompanyTexts({*company, yearly, quarterly});
    for (const auto& [text, suffix] :
         {std::pair(&yearly, yearlySuffix), std::pair(&quarterly, quarterlySuffix)})
        if (!*text)
            import.notes.push_back({name(suffix), 0, 0, "", "there is no such file"});
    return import;
}

std::string whyNotReplaced(const fs::path& place) {
    std::error_code ignored;
    const fs::file_status status = fs::status(place, ignored);
    // A file that takes its name would take the place of a pipe or a device, too.
    const bool isReplaced = !fs::is_directory(status) && !fs::is_other(status);
    return isReplaced ? ""
                      : textOf(place) + " could not be replaced: " +
                            (fs::is_directory(status) ? "it is a folder" : "it is no file");
}

CsvExport exportCompany(const CompanyRecord& company, const fs::path& folder) {
    const CompanyTexts texts = exportCompanyTexts(company);
    CsvExport result;
    PendingFiles pending;
    for (const CsvText* text : {&texts.company, &*texts.yearly, &*texts.quarterly}) {
        const fs::path place = folder / pathOf(text->file);
        result.error = pending.add(place, text->text);
        if (!result.error.empty())
            return result;
        result.files.push_back(place);
    }
    result.error = pending.putInPlace();
    return result;
}

CsvFolder csvFolder(const fs::path& folder) {
    CsvFolder result;
    std::set<std::string> prefixes;
    std::error_code fault;
    for (fs::directory_iterator entry(folder, fault), end; !fault && entry != end;
         entry.increment(fault)) {
        if (std::error_code ignored; !entry->is_regular_file(ignored))
            continue;
        const std::string name = textOf(entry->path().filename());
        for (const auto suffix : suffixes)
            if (name.ends_with(suffix) && name.size() > suffix.size())
                prefixes.insert(name.substr(0, name.size() - suffix.size()));
    }
    if (fault)
        result.error = textOf(folder) + " could not be read: " + fault.message();
    else
        result.prefixes.assign(prefixes.begin(), prefixes.end());
    return result;
}

FolderImport importFolder(const fs::path& folder, const ImportProgress& progress) {
    const CsvFolder found = csvFolder(folder);
    FolderImport result;
    result.error = found.error;
    for (const std::string& prefix : found.prefixes) {
        const int done = static_cast<int>(result.entries.size());
        if (progress && !progress(done, static_cast<int>(found.prefixes.size()), prefix)) {
            result.stopped = true;
            break;
        }
        result.entries.push_back({prefix, importCompany(folder, prefix)});
    }
    return result;
}

} // namespace vkr
