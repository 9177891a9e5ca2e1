// SPDX-License-Identifier: MIT
#pragma once

#include "company/typed_figures.hpp"

#include <QDialog>
#include <QString>

#include <vector>

QT_BEGIN_NAMESPACE
class QTreeWidget;
class QTreeWidgetItem;
QT_END_NAMESPACE

namespace vkr {

// Asks which figures that were typed an import may replace: those that are ticked, at first none.
class TypedFiguresDialog : public QDialog {
    Q_OBJECT
  public:
    struct Company {
        QString title;
        std::vector<ReplacedFigure> figures;
    };
    TypedFiguresDialog(std::vector<Company> companies, QWidget* parent);

    // The figures of a company that stay, by its place.
    [[nodiscard]] std::vector<ReplacedFigure> kept(std::size_t company) const;

  private:
    void fill();
    void tickAll(bool ticked);

    std::vector<Company> companies_;
    std::vector<std::vector<QTreeWidgetItem*>> items_; // of the figures
    QTreeWidget* tree_;
};

} // namespace vkr
