// SPDX-License-Identifier: MIT
#include "sheet/sheet_print.hpp"

#include "company/exact_text.hpp"
#include "sheet/sheet_layout.hpp"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLocale>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <stdexcept>

namespace vkr {

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("sheet", text);
}

enum class Inked { area, text };

QColor colorOf(SheetInk ink, Inked what) {
    switch (ink) {
    case SheetInk::pale:
        return {0xEC, 0xEF, 0xF2};
    case SheetInk::strong:
        return what == Inked::area ? QColor(0x3B, 0x6E, 0xA5) : QColor(0x50, 0x58, 0x60);
    case SheetInk::plain:
        break;
    }
    return Qt::black;
}

QPageSize pageSizeOf(Paper paper) {
    return QPageSize(paper == Paper::a4 ? QPageSize::A4 : QPageSize::Letter);
}

} // namespace

QList<SheetPage> companySheet(const SheetCompany& company, Paper paper, Date printed) {
    const QString day = QString::fromStdString(isoDateText(printed));
    return sheetPages(sheetContent(company), paper,
                      tr("Printed on %1. \u2248 stands before a figure that is rounded for want of "
                         "room; all others are as they are stored.")
                          .arg(day));
}

void paintPage(QPainter& painter, const SheetPage& page) {
    for (const SheetArea& area : page.areas)
        painter.fillRect(area.box, colorOf(area.ink, Inked::area));
    for (const SheetText& text : page.texts) {
        painter.setFont(text.font());
        painter.setPen(colorOf(text.ink, Inked::text));
        painter.drawText(text.box,
                         static_cast<int>(text.alignment | Qt::AlignVCenter) | Qt::TextSingleLine |
                             Qt::TextDontClip,
                         text.text);
    }
}

QString printSheets(QPagedPaintDevice& device, int resolution, Paper paper, Date printed,
                    const SheetSource& next) {
    if (QFontDatabase::families().isEmpty())
        return tr("No font is installed; fonts-dejavu-core has one.");
    device.setPageSize(pageSizeOf(paper));
    device.setPageMargins({});
    QPainter painter;
    if (!painter.begin(&device))
        return tr("The printer or file can't be opened.");
    constexpr double pointsInInch = 72;
    painter.scale(resolution / (pointsInInch * point), resolution / (pointsInInch * point));
    bool isFirst = true;
    try {
        while (const auto company = next())
            for (const SheetPage& page : companySheet(*company, paper, printed)) {
                if (!isFirst && !device.newPage())
                    return tr("The printer or file takes no further page.");
                isFirst = false;
                paintPage(painter, page);
            }
    } catch (const std::runtime_error& failure) {
        return QString::fromUtf8(failure.what());
    }
    return painter.end() ? QString() : tr("The printer or file failed.");
}

QString writeSheetPdf(const QString& file, const QString& title, Paper paper, Date printed,
                      const SheetSource& next) {
    // What takes its name would take the place of a pipe or a device, too.
    if (const QFileInfo there(file); there.exists() && !there.isFile())
        return tr("%1 is no file that a data sheet could replace. Nothing was written.").arg(file);
    QSaveFile place(file);
    if (!place.open(QIODevice::WriteOnly))
        return tr("%1 can't be written: %2.").arg(file, place.errorString());
    QString error;
    {
        QPdfWriter writer(&place);
        constexpr int resolution = 1200;
        writer.setResolution(resolution);
        writer.setTitle(title);
        writer.setCreator(QCoreApplication::applicationName());
        error = printSheets(writer, resolution, paper, printed, next);
    }
    if (!error.isEmpty())
        return error;
    return place.commit() ? QString()
                          : tr("%1 can't be written: %2.").arg(file, place.errorString());
}

Paper usualPaper() {
    return QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? Paper::letter
                                                                              : Paper::a4;
}

} // namespace vkr
