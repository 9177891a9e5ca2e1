// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/field_view.hpp"

#include <QPlainTextEdit>

namespace vkr {

// A field with several lines.
class NotesView final : public FieldView {
  public:
    NotesView(ViewHost& host, TextBox& box, QWidget& parent);
    void show(Property property) override;
    [[nodiscard]] bool canUndo() const override;

  protected:
    [[nodiscard]] QString text() const override { return edit_->toPlainText(); }
    void setText(const QString& text) override { edit_->setPlainText(text); }
    void replaceText(const QString& text) override;
    [[nodiscard]] UnitRange selection() const override;
    void select(UnitRange range) override;
    void setLocked(bool locked) override;
    void stepBack() override { edit_->undo(); }
    void stepForward() override { edit_->redo(); }
    bool typeInto(QEvent& event) override;
    // A document that is given a text while it reports a change goes on with a cursor that is gone.
    [[nodiscard]] bool mustWait() const override { return telling_ > 0; }

  private:
    void showAlignment();

    QPlainTextEdit* edit_;
    int telling_ = 0;
};

} // namespace vkr
