// SPDX-License-Identifier: MIT
#include "store/unsaved_changes.hpp"

#include "platform/error_trap.hpp"
#include "store/change_bytes.hpp"

#include <cassert>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vkr {

namespace {

// A file is its header and then records, one behind the other:
//
//   header   magic, length of the payload (4), checksum (4), payload: session, company
//   record   length of the payload (4), checksum (4) of session, number and payload, number (8),
//            payload: 1 and a group that came, or 2 where the last one went
constexpr std::string_view magic = "VKRUNSV1";
constexpr std::size_t recordHead = 16;
constexpr std::uint64_t none = ~std::uint64_t{0};
enum What : std::uint8_t { came = 1, went = 2 };

[[noreturn]] void fail(const std::string& path) {
    throw std::system_error(errno, std::generic_category(), path);
}

class Handle {
  public:
    explicit Handle(int number) : number_(number) {}
    ~Handle() {
        if (number_ >= 0)
            ::close(number_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[nodiscard]] int number() const { return number_; }

  private:
    int number_;
};

void writeAll(int file, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        const auto written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            fail(path);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

std::string sealed(std::uint64_t session, std::uint64_t number, const std::string& payload) {
    ByteWriter sum;
    sum.number(session, 8);
    sum.number(number, 8);
    ByteWriter record;
    record.number(payload.size(), 4);
    record.number(checksum(sum.bytes() + payload), 4);
    record.number(number, 8);
    return record.bytes() + payload;
}

std::string headerOf(std::uint64_t session, const UnsavedCompany& company) {
    ByteWriter payload;
    payload.number(session, 8);
    payload.number(company.id ? static_cast<std::uint64_t>(*company.id) : none, 8);
    payload.number(static_cast<std::uint64_t>(company.revision), 8);
    payload.number(company.digest, 8);
    payload.text(company.title);
    payload.number(static_cast<std::uint64_t>(::getpid()), 8);
    ByteWriter header;
    header.number(payload.bytes().size(), 4);
    header.number(checksum(payload.bytes()), 4);
    return std::string(magic) + header.bytes() + payload.bytes();
}

std::uint64_t newSession() {
    std::random_device random;
    return (static_cast<std::uint64_t>(random()) << 32U) | random();
}

std::string readAll(int file, const std::string& path) {
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const auto count = ::read(file, buffer, sizeof buffer);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            fail(path);
        if (count == 0)
            return bytes;
        bytes.append(buffer, static_cast<std::size_t>(count));
    }
}

// Where a block is longer than what is left, it was being written when its program ended; unless
// some of what is left is all of it, by its checksum: then it is the length that is wrong.
bool isWholeSomewhere(RunningChecksum sum, std::uint64_t expected, std::string_view left) {
    for (std::size_t at = 0; at < left.size(); ++at) {
        if (sum.value() == expected)
            return true;
        sum.add(left.substr(at, 1));
    }
    return sum.value() == expected;
}

// The payload; nothing where it is not whole, be it cut off or damaged.
std::optional<std::string_view> takePayload(ByteReader& reader, std::uint64_t length,
                                            const RunningChecksum& begun, std::uint64_t expected,
                                            bool& isDamaged) {
    if (length > reader.rest().size()) {
        // Longer than any group that a person makes: no length at all.
        constexpr std::uint64_t longest = 1U << 28U;
        isDamaged = length > longest || isWholeSomewhere(begun, expected, reader.rest());
        return std::nullopt;
    }
    const std::string_view payload = reader.take(length);
    RunningChecksum sum = begun;
    sum.add(payload);
    isDamaged = sum.value() != expected;
    return isDamaged ? std::nullopt : std::optional(payload);
}

// False where there is nothing more to be read.
bool readRecord(FoundChanges& found, ByteReader& reader, std::uint64_t session,
                std::uint64_t expected) {
    if (reader.rest().size() < recordHead)
        return false; // the end, or a record that was being written
    const auto length = reader.number(4);
    const auto own = reader.number(4);
    const auto number = reader.number(8);
    ByteWriter sealing;
    sealing.number(session, 8);
    sealing.number(number, 8);
    RunningChecksum begun;
    begun.add(sealing.bytes());
    const auto payload = takePayload(reader, length, begun, own, found.isDamaged);
    found.isDamaged |= number != expected;
    if (!payload || found.isDamaged)
        return false;
    found.isDamaged = !attempt([&] {
        ByteReader record(*payload);
        if (record.number(1) == came)
            found.groups.push_back(record.group());
        else if (!found.groups.empty())
            found.groups.pop_back();
    });
    return !found.isDamaged;
}

// A header that is cut off has no record behind it. Throws where there is none at all.
void readInto(FoundChanges& found, std::string_view bytes) {
    ByteReader reader(bytes);
    if (reader.take(magic.size()) != magic) {
        found.isDamaged = true;
        return;
    }
    const auto size = reader.number(4);
    const auto sum = reader.number(4);
    const auto header = takePayload(reader, size, {}, sum, found.isDamaged);
    if (!header)
        return;
    ByteReader fields(*header);
    const auto session = fields.number(8);
    const auto id = fields.number(8);
    if (id != none)
        found.company.id = static_cast<std::int64_t>(id);
    found.company.revision = static_cast<std::int64_t>(fields.number(8));
    found.company.digest = fields.number(8);
    found.company.title = fields.text();
    for (std::uint64_t expected = 1; readRecord(found, reader, session, expected); ++expected) {
    }
}

// As begin() calls them; a file of another name is somebody else's.
bool isOurName(std::string_view name, std::string_view prefix) {
    return name.starts_with(prefix) && name.size() == prefix.size() + 16 &&
           name.substr(prefix.size()).find_first_not_of("0123456789abcdef") ==
               std::string_view::npos;
}

} // namespace

std::uint64_t digestOf(const iVKR_Company& company) {
    ByteWriter bytes;
    for (const DatumRow& row : datumTable())
        ifPossible([&] { bytes.value(readDatum(company, row.datum)); });
    std::uint64_t digest = 14695981039346656037U;
    for (const char byte : bytes.bytes())
        digest = (digest ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    return digest;
}

// --- writing -------------------------------------------------------------------------------------

class UnsavedChanges::File {
  public:
    // Whole on the disk, its name included, when it is there.
    File(const std::string& folder, const std::string& path, std::uint64_t session,
         const UnsavedCompany& company)
        : path_(path), session_(session),
          handle_(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600)) {
        if (handle_.number() < 0 || ::flock(handle_.number(), LOCK_EX | LOCK_NB) != 0)
            fail(path);
        writeAll(handle_.number(), headerOf(session, company), path);
        if (::fsync(handle_.number()) != 0)
            fail(path);
        const Handle place(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (place.number() < 0 || ::fsync(place.number()) != 0)
            fail(folder);
    }

    void append(const std::string& payload) {
        writeAll(handle_.number(), sealed(session_, ++last_, payload), path_);
        if (::fdatasync(handle_.number()) != 0)
            fail(path_);
    }

  private:
    std::string path_;
    std::uint64_t session_;
    std::uint64_t last_ = 0;
    Handle handle_;
};

UnsavedChanges::UnsavedChanges(UnsavedPlace place, UnsavedCompany company)
    : place_(std::move(place)), company_(std::move(company)) {}

UnsavedChanges::~UnsavedChanges() = default;

namespace {

std::string payloadOf(const ChangeGroup& group) {
    ByteWriter payload;
    payload.number(came, 1);
    payload.group(group);
    return payload.bytes();
}

} // namespace

// With what came before the change that is about to be written.
void UnsavedChanges::begin() {
    std::filesystem::create_directories(place_.folder);
    const std::uint64_t session = newSession();
    char name[17];
    std::snprintf(name, sizeof name, "%016llx", static_cast<unsigned long long>(session));
    const std::string path = place_.folder + "/" + place_.prefix + name;
    paths_.push_back(path);
    auto file = std::make_unique<File>(place_.folder, path, session, company_);
    for (const ChangeGroup& group : groups_)
        file->append(payloadOf(group));
    file_ = std::move(file);
}

std::optional<std::string> UnsavedChanges::append(const std::string& payload) {
    auto failure = failureOf([&] {
        if (file_ == nullptr)
            begin();
        file_->append(payload);
    });
    if (failure && file_ != nullptr) // what was synced stays there, and no more is promised
        failed_.push_back(std::move(file_));
    assert(paths_.size() >= failed_.size() + (file_ != nullptr ? 1 : 0));
    return failure;
}

std::optional<std::string> UnsavedChanges::add(const ChangeGroup& group) {
    auto failure = append(payloadOf(group));
    groups_.push_back(group);
    return failure;
}

std::optional<std::string> UnsavedChanges::takeBackLast() {
    ByteWriter payload;
    payload.number(went, 1);
    auto failure = append(payload.bytes());
    if (!groups_.empty())
        groups_.pop_back();
    if (groups_.empty() && !failure)
        remove();
    return failure;
}

void UnsavedChanges::remove() {
    for (const std::string& path : paths_)
        ::unlink(path.c_str());
    paths_.clear();
    file_.reset();
    failed_.clear();
    groups_.clear();
}

// --- finding -------------------------------------------------------------------------------------

std::vector<FoundChanges> findUnsavedChanges(const UnsavedPlace& place) {
    std::vector<FoundChanges> all;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(place.folder, error)) {
        const std::string name = entry.path().filename().string();
        if (!isOurName(name, place.prefix))
            continue;
        FoundChanges found;
        found.path = entry.path().string();
        const auto handle =
            std::make_shared<Handle>(::open(found.path.c_str(), O_RDONLY | O_CLOEXEC));
        if (handle->number() < 0 || ::flock(handle->number(), LOCK_EX | LOCK_NB) != 0)
            continue; // a window is writing it
        found.locked = handle;
        if (attempt([&] { readInto(found, readAll(handle->number(), found.path)); }) &&
            (!found.groups.empty() || found.isDamaged))
            all.push_back(std::move(found));
    }
    return all;
}

void removeFound(const FoundChanges& found) {
    ::unlink(found.path.c_str());
}

std::optional<std::string> keepOnly(const FoundChanges& found, const std::vector<ChangeGroup>& left,
                                    const UnsavedPlace& place) {
    UnsavedCompany company = found.company;
    company.digest = 0; // they lead from no record any more
    UnsavedChanges kept(place, company);
    for (const ChangeGroup& group : left)
        if (auto failure = kept.add(group)) {
            kept.remove();
            return failure;
        }
    removeFound(found);
    return std::nullopt;
}

} // namespace vkr
