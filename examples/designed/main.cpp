// SPDX-License-Identifier: MIT
// A window that was laid out in Qt Designer. It edits the first company of a file, which is made
// where there is none:
//
//     vkr-example-designed companies.vkr [picture.png]
//
// With a picture named, it draws itself into it and ends.
#include "store/company_store.hpp"
#include "ui_company_window.h"

#include <QApplication>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>

namespace {

int complain(const vkr::StoreError& error) {
    std::fprintf(stderr, "%s\n", error.message.c_str());
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "vkr-example-designed <file> [<picture>]\n");
        return 2;
    }

    auto opened = vkr::CompanyStore::open(arguments[1].toStdString(), vkr::OpenMode::create);
    if (!opened)
        return complain(opened.error());
    vkr::CompanyStore& store = *opened.value();
    auto listed = store.list();
    if (!listed)
        return complain(listed.error());

    std::optional<std::int64_t> id;
    std::int64_t revision = 0;
    auto record = std::make_shared<vkr::CompanyRecord>();
    if (!listed.value().empty()) {
        id = listed.value().front().key.id;
        auto loaded = store.load(*id);
        if (!loaded)
            return complain(loaded.error());
        record = loaded.value().record;
        revision = loaded.value().revision;
    }

    QWidget window;
    Ui::CompanyWindow form;
    form.setupUi(&window);
    form.entry->setCompany(record);
    const auto showTitle = [&] {
        window.setWindowTitle(vkr::VKRDataEntryWidget::windowTitleFor(form.entry->title()));
    };
    showTitle();
    QObject::connect(form.entry, &vkr::VKRDataEntryWidget::titleChanged, &window, showTitle);
    QObject::connect(form.entry, &vkr::VKRDataEntryWidget::dirtyChanged, &window,
                     &QWidget::setWindowModified);
    QObject::connect(form.entry, &vkr::VKRDataEntryWidget::rejected, &window, &QWidget::close);
    QObject::connect(form.entry, &vkr::VKRDataEntryWidget::accepted, &window, [&] {
        // company() leaves the field: what is still being typed counts.
        record = std::dynamic_pointer_cast<vkr::CompanyRecord>(form.entry->company());
        if (const auto saved = store.save(id, *record, revision); !saved)
            form.message->setText(QString::fromStdString(saved.error().message));
        else
            window.close();
    });

    if (arguments.size() > 2) {
        if (window.grab().save(arguments[2]))
            return 0;
        std::fprintf(stderr, "%s can't be written\n", qUtf8Printable(arguments[2]));
        return 1;
    }
    window.show();
    return QApplication::exec();
}
