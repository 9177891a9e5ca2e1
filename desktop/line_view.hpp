// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/field_view.hpp"

#include <QLineEdit>

namespace vkr {

// A field on a QLineEdit, alone or inside an editable list.
class LineFieldView : public FieldView {
  public:
    void type(QEvent& event) override;
    [[nodiscard]] bool canUndo() const override { return edit_->isUndoAvailable(); }
    void focusLost() override;

  protected:
    using FieldView::FieldView;
    void setEdit(QLineEdit& edit);
    bool handleOwn(QEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    [[nodiscard]] QLineEdit& edit() const { return *edit_; }

    [[nodiscard]] QString text() const override { return edit_->text(); }
    void setText(const QString& text) override { edit_->setText(text); }
    void replaceText(const QString& text) override;
    [[nodiscard]] UnitRange selection() const override;
    void select(UnitRange range) override;
    void setLocked(bool locked) override;
    void stepBack() override { edit_->undo(); }
    void stepForward() override { edit_->redo(); }

  private:
    void drop(QDropEvent& event, const QWidget& source);

    QLineEdit* edit_ = nullptr;
};

class LineView final : public LineFieldView {
  public:
    LineView(ViewHost& host, TextBox& box, QWidget& parent);
    void show(Property property) override;
    void dropColors() override;

  protected:
    void setPalette(const QPalette& wanted) override;
    bool typeInto(QEvent& event) override;
    [[nodiscard]] bool fits() const override;

  private:
    void showAlignment();
    void fitFigure();
    [[nodiscard]] int room() const; // for its text

    bool condensed_ = false;
};

} // namespace vkr
