// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace vkr {

// Boxes to tick whose frame can be told from a dark ground, and that do not touch one another.
class TickDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 6);
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QColor text = option->palette.color(QPalette::Text);
        const QColor base = option->palette.color(QPalette::Base);
        if (base.lightness() < text.lightness()) // styles draw it a shade darker than the window
            option->palette.setColor(QPalette::Window, text);
    }
};

} // namespace vkr
