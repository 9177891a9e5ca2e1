// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"

#include <QObject>

#include <functional>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace vkr {

class VKRDataEntryWidget;

// Tells on the form of a company's window where its figures come from: with each one in words, and
// by a small corner at those that were not typed. Whether it does is chosen in a menu, and kept
// from one start to the next.
class OriginMarks : public QObject {
    Q_OBJECT
  public:
    using Source = std::function<FigureOrigins()>;

    OriginMarks(VKRDataEntryWidget& entry, Source origins, QObject* parent);

    void addTo(QMenu& menu);
    void showLater(); // when the event under way is done

  private:
    void setShown(bool shown);
    void show();

    VKRDataEntryWidget& entry_;
    Source origins_;
    bool isShown_ = false;
    bool isDue_ = false;
};

} // namespace vkr
