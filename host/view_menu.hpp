// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QMenu;
QT_END_NAMESPACE

namespace vkr {

class VKRDataEntryWidget;

// How a form is shown in its window: its size, by keys, menu, wheel and the window's own edges, and
// whether figures are grouped. Both are kept from one start to the next.
class ViewMenu : public QObject {
    Q_OBJECT
  public:
    // Adds itself to the window's menu bar. The widget is within the window.
    ViewMenu(QMainWindow& window, VKRDataEntryWidget& entry);

    [[nodiscard]] QMenu& menu() { return *menu_; }

  private:
    // In percent; the window grows or shrinks with the form where it can.
    void zoomTo(int percent);
    [[nodiscard]] bool fillsScreen() const;
    void tellNoRoom(int percent);
    void groupDigits(bool grouped);

    QMainWindow& window_;
    QMenu* menu_;
    VKRDataEntryWidget& entry_;
};

} // namespace vkr
