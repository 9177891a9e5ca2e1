// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"
#include "desktop/qt_values.hpp"
#include "platform/field_face.hpp"

#include <QMouseEvent>

#include <memory>
#include <string>
#include <string_view>

namespace vkr {

// The text of a widget.
struct QtTexts {
    using Text = QString;

    static std::string utf8(const QString& text) { return fromQt(text); }
    static QString first(const QString& text, int units) { return text.left(units); }
    static QString from(const QString& text, int unit) { return text.mid(unit); }
    static int unitsOf(const QString& text, int characters) {
        return vkr::unitsOf(text, characters);
    }
    static int charactersOf(const QString& text, int units) {
        return vkr::charactersOf(text, units);
    }
};

// What text boxes and lists have in common.
class FieldView : public FieldFace<ControlView, QtTexts> {
  public:
    void show(Property property) override;
    void type(QEvent& event) override;
    void focusGained() override;

    [[nodiscard]] virtual bool canUndo() const = 0;
    void undo();
    void redo();

  protected:
    using FieldFace::FieldFace;

    bool handleOwn(QEvent& event, QWidget& source, NativeEvent native) override;
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void drag(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void showColors() override;
    void pressEnded() override { firstPress_.reset(); }

    void putBack(const QString& text) override { replaceText(text); } // the redo is empty then
    [[nodiscard]] QString nativeText(std::string_view text) const override;
    void showText() override;
    virtual void setLocked(bool locked) = 0;
    virtual void setPalette(const QPalette& wanted);
    virtual void stepForward() = 0;
    virtual bool typeInto(QEvent& event) = 0;
    // All of the text can be seen wherever the caret stands.
    [[nodiscard]] virtual bool fits() const { return false; }

  private:
    void showLocked();
    void showMark();
    void showEdit();
    void showSelection();
    bool postponed(void (FieldView::*part)());

    std::unique_ptr<QMouseEvent> firstPress_;
};

[[nodiscard]] Qt::Alignment alignmentOf(const TextBox& box);

} // namespace vkr
