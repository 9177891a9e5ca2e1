// SPDX-License-Identifier: MIT
#include "host/origin_marks.hpp"

#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "host/history_items.hpp"
#include "host/texts.hpp"
#include "host/window_memory.hpp"

#include <QAction>
#include <QMenu>
#include <QTimer>

#include <map>
#include <utility>

namespace vkr {

namespace {

constexpr auto shownKey = "form/markOrigins";

FieldOrigin toldOf(const FigureOrigin& origin) {
    QString text = history::originText(origin.origin, fromUtf8(origin.document));
    text[0] = text[0].toUpper();
    const bool isByHand = origin.origin == Origin::typed;
    return {(text + u'.').toStdString(), !isByHand};
}

} // namespace

OriginMarks::OriginMarks(VKRDataEntryWidget& entry, const ShownCompany& company, QObject* parent)
    : QObject(parent), entry_(entry), company_(company),
      isShown_(programSettings().value(QLatin1String(shownKey)).toBool()) {
    connect(&entry, &VKRDataEntryWidget::edited, this, &OriginMarks::showLater);
}

void OriginMarks::addTo(QMenu& menu) {
    auto* action = menu.addAction(tr("&Mark Figures That Were Not Typed"));
    action->setObjectName(QStringLiteral("markOrigins"));
    action->setCheckable(true);
    action->setChecked(isShown_);
    connect(action, &QAction::toggled, this, &OriginMarks::setShown);
}

void OriginMarks::setShown(bool shown) {
    isShown_ = shown;
    programSettings().setValue(QLatin1String(shownKey), shown);
    show();
}

void OriginMarks::showLater() {
    if (isShown_ && !std::exchange(isDue_, true))
        QTimer::singleShot(0, this, &OriginMarks::show);
}

void OriginMarks::show() {
    isDue_ = false;
    std::map<FigurePlace, FieldOrigin> told;
    if (isShown_) {
        const FigureOrigins origins = company_.origins();
        const auto add = [&](const FigurePlace& place) {
            const FigureOrigin origin = origins.of(place.datum, place.element);
            if (origin.origin)
                told.emplace(place, toldOf(origin));
        };
        for (const DatumRow& row : datumTable()) {
            if (row.unit == DatumUnit::none)
                continue; // no figure
            if (!isSeries(row))
                add({row.datum, std::nullopt});
            for (int element = 0; isSeries(row) && element <= row.upper; ++element)
                add({row.datum, element});
        }
    }
    entry_.component().setOrigins(std::move(told));
}

} // namespace vkr
