// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/form_view.hpp"
#include "platform/object_factory.hpp"
#include "platform/services.hpp"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <vector>

namespace vkr {

// The desktop as the component sees it, on Qt. Dialogs belong to the window of the owner; without
// an owner, which may be destroyed while one is open, every question is answered with no.
//
// What may be true together: there are remains only while a call has not returned, and then there
// is no owner any more.
class QtServices : public Services {
  public:
    explicit QtServices(QWidget& owner) : owner_(&owner) {}

    // A call that has not returned to the component yet: a dialog or a menu is open, or the host
    // handles an event.
    class Call {
      public:
        explicit Call(QtServices& services, QWidget* window = nullptr);
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call();

      private:
        QtServices& services_;
    };
    [[nodiscard]] bool isCalling() const { return !calls_.empty(); }
    // The owner goes: closes what is open. `remains` has all that the calls return to, these
    // services included, and is deleted when they have.
    void leave(QObject& remains);

    void setView(FormView* view) { view_ = view; }
    // Objects that the component creates by their identifier.
    [[nodiscard]] ObjectFactory& factory() { return factory_; }
    void setUserMode(bool userMode) { userMode_ = userMode; }
    [[nodiscard]] QString title() const { return title_; }
    void setTitle(const QString& title) { title_ = title; }

    MessageAnswer messageBox(const std::string& text, int buttons,
                             const std::string& title) override;
    bool clipboardHasText() override;
    std::string clipboardText() override;
    std::optional<char> clipboardDecimalMark() override;
    void clearClipboard() override;
    void setClipboardText(const std::string& text) override;
    Date today() override;
    Twips screenWidth() override;
    std::optional<Color> chooseColor(Color current) override;
    void showModal(CalendarForm& form) override;
    void showPaste(PasteForm& form) override;
    void tellRefused(TextField& field, const std::string& note) override;
    bool canUndo(const TextField& field) override;
    void undo(TextField& field) override;
    void redo(TextField& field) override;
    Twips textWidth(std::string_view text) override;
    Twips textHeight() override;
    int popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) override;
    std::shared_ptr<Object> createObject(std::string_view programmaticId) override;
    bool ambientUserMode() override { return userMode_; }
    std::string applicationTitle() override;
    void propertyChanged(std::string_view /*name*/) override {} // whoever owns it may tell

  private:
    [[nodiscard]] QWidget* window();
    void interrupt();
    [[nodiscard]] QFont font() const;

    [[nodiscard]] PixelScale scale() const;

    QPointer<QWidget> owner_;
    QPointer<FormView> view_;
    std::vector<QPointer<QWidget>> calls_; // the window of each, null for a handler of the host's
    QPointer<QObject> remains_;
    ObjectFactory factory_;
    QString title_ = QStringLiteral("Data Entry");
    bool userMode_ = true;
};

} // namespace vkr
