// SPDX-License-Identifier: MIT
// Whatever stands in a file, the store opens it or says why not. What can be read of a damaged one
// is a company, and a file that is none, or can't be opened, is left as it was.
#include "fuzz/fuzz_input.hpp"
#include "store/company_store.hpp"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <string>

namespace {

using namespace vkr;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(), "no disk");
}

// A store with two companies, as it lies on the disk.
QByteArray wholeFile(const QTemporaryDir& folder) {
    const QString path = folder.filePath("whole.vkr");
    {
        auto store = CompanyStore::open(path.toStdString(), OpenMode::create);
        require(static_cast<bool>(store), "no store");
        for (const char* name : {"First", "Second"}) {
            CompanyRecord company;
            company.put_Name(name);
            company.put_LastFY(2025);
            Variant sales = company.get_YRevenueSeries();
            sales.array().setNumber(1, 394.33);
            company.put_YRevenueSeries(sales);
            require(static_cast<bool>(store.value()->save(std::nullopt, company)), "not saved");
        }
    }
    return contentOf(path);
}

struct Fixture {
    int argc = 1;
    char name[5] = "fuzz";
    char* argv[2] = {name, nullptr};
    QCoreApplication application{argc, argv};
    QTemporaryDir folder;
    QByteArray whole = wholeFile(folder);
};

void work(CompanyStore& store) {
    auto listed = store.list();
    if (!listed) {
        require(!listed.error().message.empty(), "an error without a message");
        return;
    }
    for (const auto& summary : listed.value()) {
        auto loaded = store.load(summary.key.id);
        if (!loaded) {
            require(!loaded.error().message.empty(), "an error without a message");
            continue;
        }
        require(loaded.value().record != nullptr, "no company");
        loaded.value().record->put_Notes("saved again");
        const auto saved =
            store.save(summary.key.id, *loaded.value().record, loaded.value().revision);
        require(static_cast<bool>(saved) || !saved.error().message.empty(),
                "an error without a message");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static auto* fixture = new Fixture; // Qt wants it to outlive everything
    FuzzInput input(data, size);
    // A file of these bytes, or the whole one with some of its bytes changed, perhaps cut off.
    QByteArray content = fixture->whole;
    const int kind = input.below(4);
    if (kind == 0) {
        const auto bytes = input.rest();
        content = QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
    } else {
        if (kind == 1)
            content.truncate(static_cast<qsizetype>(
                input.take<std::uint32_t>() % static_cast<std::uint32_t>(content.size() + 1)));
        while (!input.empty() && !content.isEmpty()) {
            const auto place = input.take<std::uint32_t>() %
                               (kind == 2 ? 4096U : static_cast<std::uint32_t>(content.size()));
            if (place < static_cast<std::uint32_t>(content.size()))
                content[static_cast<qsizetype>(place)] = input.take<char>();
        }
    }
    const QString path = fixture->folder.filePath("damaged.vkr");
    for (const QString& entry : QDir(fixture->folder.path()).entryList(QDir::Files))
        if (entry != "whole.vkr")
            QFile::remove(fixture->folder.filePath(entry));
    write(path, content);
    StoreOptions options;
    options.patience = std::chrono::milliseconds(0);
    auto store = CompanyStore::open(path.toStdString(), OpenMode::existing, options);
    if (store) {
        work(*store.value());
        return 0;
    }
    require(!store.error().message.empty(), "an error without a message");
    require(contentOf(path) == content, "a file that could not be opened was changed");
    return 0;
}
