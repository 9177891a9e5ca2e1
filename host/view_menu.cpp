// SPDX-License-Identifier: MIT
#include "host/view_menu.hpp"

#include "desktop/form_view.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "host/messages.hpp"
#include "host/window_memory.hpp"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFontInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>

#include <algorithm>

namespace vkr {

namespace {

constexpr auto zoomKey = "form/zoom";
constexpr auto groupingKey = "form/groupDigits";
constexpr int step = 10;

QString numberPattern(bool grouped) {
    return grouped ? QStringLiteral("#,##0.00") : QStringLiteral("#0.00");
}

// What a form begins with: as it was left, else with letters as large as the desktop's own, and no
// larger than the screen.
int zoomAtStart(const VKRDataEntryWidget& entry) {
    const QVariant kept = programSettings().value(QLatin1String(zoomKey));
    const int letters = QFontInfo(QApplication::font()).pixelSize();
    const int own = FormView::fontFor(PixelScale(entry.logicalDpiX())).pixelSize();
    const QSize whole = entry.sizeHint() * 100 / entry.zoom();
    const QSize room = entry.screen()->availableSize() * 9 / 10; // what the window has around it
    return std::min({kept.isValid() ? kept.toInt() : 100 * letters / own,
                     100 * room.width() / whole.width(), 100 * room.height() / whole.height()});
}

} // namespace

ViewMenu::ViewMenu(QMainWindow& window, VKRDataEntryWidget& entry)
    : QObject(&window), window_(window), menu_(window.menuBar()->addMenu(tr("&View"))),
      entry_(entry) {
    const auto add = [&](const char* name, const QString& text, const QList<QKeySequence>& keys,
                         auto act) {
        auto* action = menu_->addAction(text, this, act);
        action->setObjectName(QLatin1String(name));
        action->setShortcuts(keys);
        return action;
    };
    add("zoomIn", tr("&Larger"), {QKeySequence(tr("Ctrl++")), QKeySequence(tr("Ctrl+="))},
        [this] { zoomTo((entry_.zoom() / step + 1) * step); });
    add("zoomOut", tr("&Smaller"), {QKeySequence(tr("Ctrl+-"))},
        [this] { zoomTo(((entry_.zoom() + step - 1) / step - 1) * step); });
    add("zoomReset", tr("&Actual Size"), {QKeySequence(tr("Ctrl+0"))}, [this] { zoomTo(100); });
    menu_->addSeparator();
    auto* grouping = add("groupDigits", tr("&Group Digits"), {}, [] {});
    grouping->setCheckable(true);
    connect(grouping, &QAction::toggled, this, &ViewMenu::groupDigits);

    entry_.setZoomsToFit(true);
    entry_.setZoom(zoomAtStart(entry_));
    grouping->setChecked(programSettings().value(QLatin1String(groupingKey)).toBool());
    // A panel beside the form comes and goes without taking room from it. A window that ends hides
    // its panels when the form has gone.
    for (auto* panel : window.findChildren<QDockWidget*>())
        connect(panel, &QDockWidget::visibilityChanged, &entry_, [this] {
            QTimer::singleShot(0, &entry_, [this, zoom = entry_.zoom()] {
                if (!fillsScreen())
                    zoomTo(zoom);
            });
        });
    connect(&entry_, &VKRDataEntryWidget::zoomRequested, this, &ViewMenu::zoomTo);
    connect(&entry_, &VKRDataEntryWidget::zoomChanged, this,
            [](int percent) { programSettings().setValue(QLatin1String(zoomKey), percent); });
}

// The form is never larger than its window, nor the window than the screen: where there is no room
// for more, that is said.
void ViewMenu::zoomTo(int percent) {
    constexpr int smallest = VKRDataEntryWidget::smallestZoom;
    constexpr int largest = VKRDataEntryWidget::largestZoom;
    if (percent < smallest || percent > largest)
        notice(window_, percent < smallest ? tr("%1 % is the smallest size.").arg(smallest)
                                           : tr("%1 % is the largest size.").arg(largest));
    const QSize before = entry_.size();
    const int zoom = entry_.zoom();
    entry_.setZoom(percent);
    if (!window_.isVisible())
        return;
    if (!fillsScreen()) {
        const QSize frame = window_.frameGeometry().size() - window_.size();
        const QSize room = window_.screen()->availableSize() - frame;
        window_.resize((window_.size() + entry_.sizeHint() - before).boundedTo(room));
    }
    // A window that was as large as it can be has told the form of no other room.
    if (entry_.sizeHint().boundedTo(entry_.size()) != entry_.sizeHint())
        entry_.setZoom(zoom);
    if (entry_.zoom() < std::min(percent, largest))
        tellNoRoom(percent);
}

void ViewMenu::tellNoRoom(int percent) {
    notice(window_, tr("The screen has no room for the form at %1 %.").arg(percent));
}

bool ViewMenu::fillsScreen() const {
    return window_.isMaximized() || window_.isFullScreen();
}

void ViewMenu::groupDigits(bool grouped) {
    programSettings().setValue(QLatin1String(groupingKey), grouped);
    entry_.setNumberFormat(numberPattern(grouped));
    entry_.recordChanged(); // shows the figures anew
}

} // namespace vkr
