// SPDX-License-Identifier: MIT
#pragma once

#include "host/shown_company.hpp"

#include <QObject>

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
    OriginMarks(VKRDataEntryWidget& entry, const ShownCompany& company, QObject* parent);

    void addTo(QMenu& menu);
    void showLater(); // when the event under way is done

  private:
    void setShown(bool shown);
    void show();

    VKRDataEntryWidget& entry_;
    const ShownCompany& company_;
    bool isShown_ = false;
    bool isDue_ = false;
};

} // namespace vkr
