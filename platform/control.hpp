// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.hpp"
#include "platform/localizer.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vkr {

class Control;
class Form;
class Frame;
class OptionButton;
class ScrollBar;
class TabStrip;

// Lengths and places are in twips: 1440 to the inch, 15 to a pixel at 96 dots per inch.
using Twips = double;

enum class ControlKind {
    textBox,
    comboBox,
    label,
    commandButton,
    optionButton,
    checkBox,
    scrollBar,
    spinner,
    frame,
    tabStrip,
    shape,
    pictureBox,
    menuItem,
};

// What an observer is told has changed in a model.
enum class Property {
    text, // put there by the program: the field's own undo starts anew
    edit, // text changed by a command on the user's behalf: one undoable step
    selection,
    caption, // also tab captions
    place,   // left, top, width, height
    visible,
    enabled,
    locked,
    colors,  // or highlighted
    toolTip, // or the accessible name
    value,   // option, check box, scroll bar value and range, selected tab
    list,
    order, // brought to the front
    look,  // word wrap, alignment, border, pictures
    mark,  // what there is to say of the field's text
};

// What controls do by means of the form that they are on.
class ControlSite {
  public:
    virtual ~ControlSite() = default;

    [[nodiscard]] virtual Form& form() = 0;
    virtual void tellChanged(Control& control, Property property) = 0;
    [[nodiscard]] virtual int tabIndexOf(const Control& control) const = 0;
    virtual void setTabIndex(Control& control, int index) = 0;
    virtual bool focus(Control& control) = 0;
    virtual void takeChoiceFromOthers(const OptionButton& chosen) = 0;
    // What they do when a person or the program has set them.
    virtual void scrolled(ScrollBar& bar) = 0;
    virtual void tabSelected(TabStrip& strip) = 0;
};

// A control model: what a control on the form holds. Handlers read and write models only; an
// adapter draws them and forwards what the user does. Setting an equal value tells nobody.
class Control {
  public:
    static constexpr int noIndex = -1;
    // Pages that are not on show are parked here, to the left of everything.
    static constexpr Twips parkedLeft = -20000;

    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    [[nodiscard]] ControlKind kind() const { return kind_; }
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] int index() const { return index_; } // noIndex outside control arrays
    [[nodiscard]] std::string id() const;              // "txtName", "txtSales(3)"
    [[nodiscard]] Form& form() const { return site_.form(); }
    [[nodiscard]] Frame* container() const { return container_; } // null: the form itself

    [[nodiscard]] Twips left() const { return left_; }
    [[nodiscard]] Twips top() const { return top_; }
    [[nodiscard]] Twips width() const { return width_; }
    [[nodiscard]] Twips height() const { return height_; }
    void move(Twips left, Twips top);
    void resize(Twips width, Twips height);
    // Left and top relative to the form's own corner.
    [[nodiscard]] Twips formLeft() const;
    [[nodiscard]] Twips formTop() const;

    [[nodiscard]] bool visible() const { return visible_; }
    void setVisible(bool visible);
    [[nodiscard]] bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    // With all containers around it, and on no parked page.
    [[nodiscard]] bool isShown() const;
    [[nodiscard]] bool isEnabled() const;
    [[nodiscard]] bool isFocusable() const; // of a kind that takes the focus at all
    [[nodiscard]] bool isField() const {    // a TextField
        return kind_ == ControlKind::textBox || kind_ == ControlKind::comboBox;
    }
    [[nodiscard]] bool canTakeFocus() const { return isFocusable() && isShown() && isEnabled(); }

    [[nodiscard]] virtual const std::string& tag() const { return tag_; }
    virtual void setTag(std::string_view tag) { tag_ = tag; }
    [[nodiscard]] const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string_view toolTip);
    // The name for people who hear the form instead of seeing it. Empty: adapters take the caption.
    [[nodiscard]] const std::string& accessibleName() const { return accessibleName_; }
    void setAccessibleName(std::string_view name) {
        assign(accessibleName_, name, Property::toolTip);
    }

    // Scroll bars and spinners have no colours of their own: setting one throws.
    [[nodiscard]] bool hasColors() const;
    [[nodiscard]] Color backColor() const { return backColor_; }
    [[nodiscard]] Color foreColor() const { return foreColor_; }
    void setBackColor(Color color);
    void setForeColor(Color color);

    [[nodiscard]] bool hasCaption() const;
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string_view caption); // throws where hasCaption() is false

    // Number of controls in front of it in tab order. Setting it moves the control there.
    [[nodiscard]] int tabIndex() const;
    void setTabIndex(int index);

    void bringToFront() { notify(Property::order); }
    void setFocus(); // does nothing while it can't take the focus

  protected:
    Control(ControlKind kind, ControlSite& site, std::string_view name, int index,
            Frame* container);
    [[nodiscard]] ControlSite& site() const { return site_; }
    void notify(Property property) { site_.tellChanged(*this, property); }
    template <typename T, typename Value>
    void assign(T& member, const Value& value, Property property) {
        if (member == value)
            return;
        member = value;
        notify(property);
    }

  private:
    friend class Form;

    ControlKind kind_;
    unsigned changes_ = 0; // properties that observers are still to be told of
    ControlSite& site_;
    std::string name_;
    int index_;
    Frame* container_;
    Twips left_ = 0;
    Twips top_ = 0;
    Twips width_ = 0;
    Twips height_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
    Color backColor_ = colors::buttonFace;
    Color foreColor_ = colors::black;
    std::string caption_;
    std::string tag_;
    std::string toolTip_;
    std::string accessibleName_;
};

enum class Alignment { left, center, right };

class Label : public Control {
  public:
    Label(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::label, site, name, index, container) {}

    [[nodiscard]] bool autoSize() const { return autoSize_; }
    void setAutoSize(bool autoSize) { assign(autoSize_, autoSize, Property::look); }
    [[nodiscard]] bool wordWrap() const { return wordWrap_; }
    void setWordWrap(bool wordWrap) { assign(wordWrap_, wordWrap, Property::look); }
    [[nodiscard]] Alignment alignment() const { return alignment_; }
    void setAlignment(Alignment alignment) { assign(alignment_, alignment, Property::look); }
    // A link is drawn underlined, with its picture as the pointer.
    [[nodiscard]] bool isLink() const { return link_; }
    void setLink(bool link) { assign(link_, link, Property::look); }
    [[nodiscard]] const Picture& mouseIcon() const { return mouseIcon_; }
    void setMouseIcon(const Picture& icon) { assign(mouseIcon_, icon, Property::look); }
    // The control that the label names, where its mnemonic leads; a control array's element stands
    // for those below it where it can't take the focus itself. Null: the next one in tab order
    // within the same container. A buddy that is removed from the form is one no more.
    [[nodiscard]] Control* buddy() const { return buddy_; }
    void setBuddy(Control* buddy) { assign(buddy_, buddy, Property::look); }

  private:
    bool autoSize_ = false;
    bool wordWrap_ = false;
    bool link_ = false;
    Control* buddy_ = nullptr;
    Alignment alignment_ = Alignment::left;
    Picture mouseIcon_;
};

class CommandButton : public Control {
  public:
    CommandButton(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::commandButton, site, name, index, container) {}
};

// Of the options of one control array exactly one, or none at first, is chosen.
class OptionButton : public Control {
  public:
    OptionButton(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::optionButton, site, name, index, container) {}

    [[nodiscard]] bool value() const { return value_; }
    void setValue(bool value); // true takes the choice from the other options of the array

  private:
    bool value_ = false;
};

class CheckBox : public Control {
  public:
    CheckBox(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::checkBox, site, name, index, container) {}

    [[nodiscard]] bool value() const { return value_; }
    void setValue(bool value) { assign(value_, value, Property::value); }

  private:
    bool value_ = false;
};

// An option or a check box that is; false for every other control.
[[nodiscard]] bool isChosen(const Control& control);

enum class Orientation { horizontal, vertical };

class ScrollBar : public Control {
  public:
    ScrollBar(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::scrollBar, site, name, index, container) {}

    [[nodiscard]] Orientation orientation() const { return orientation_; }
    void setOrientation(Orientation orientation) {
        assign(orientation_, orientation, Property::look);
    }
    [[nodiscard]] int minimum() const { return minimum_; }
    [[nodiscard]] int maximum() const { return maximum_; }
    [[nodiscard]] int smallChange() const { return smallChange_; }
    [[nodiscard]] int largeChange() const { return largeChange_; }
    void setRange(int minimum, int maximum, int smallChange, int largeChange);
    [[nodiscard]] int value() const { return value_; }
    // Cut to the range. A change runs the bar's own change handling, whoever made it.
    void setValue(int value);

  private:
    Orientation orientation_ = Orientation::horizontal;
    int minimum_ = 0;
    int maximum_ = 0;
    int smallChange_ = 1;
    int largeChange_ = 1;
    int value_ = 0;
};

class Spinner : public Control {
  public:
    Spinner(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::spinner, site, name, index, container) {}

    [[nodiscard]] int value() const { return value_; }
    void setValue(int value) { assign(value_, value, Property::value); }

  private:
    int value_ = 0;
};

enum class FrameBorder { none, line, group };

class Frame : public Control {
  public:
    Frame(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::frame, site, name, index, container) {}

    [[nodiscard]] FrameBorder border() const { return border_; }
    void setBorder(FrameBorder border) { assign(border_, border, Property::look); }
    // Comes up by itself: adapters have its accessible name read out then.
    [[nodiscard]] bool isNotice() const { return notice_; }
    void setNotice(bool notice) { notice_ = notice; }

  private:
    FrameBorder border_ = FrameBorder::none;
    bool notice_ = false;
};

struct Tab {
    std::string caption;
    std::string key;
    std::string tag;
    std::string toolTip;
    Twips width = 0;

    friend bool operator==(const Tab&, const Tab&) = default;
};

class TabStrip : public Control {
  public:
    TabStrip(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::tabStrip, site, name, index, container) {}

    [[nodiscard]] int count() const { return static_cast<int>(tabs_.size()); }
    [[nodiscard]] const Tab& tab(int index) const; // 1 to count()
    void addTab(Tab tab);
    void setTabCaption(int index, std::string_view caption);
    [[nodiscard]] int selected() const { return selected_; } // 1 to count()
    // Runs the strip's selection handling, also for the tab that is selected already. An index
    // outside 1 to count() throws std::out_of_range.
    void selectTab(int index);

  private:
    std::vector<Tab> tabs_;
    int selected_ = 1;
};

class Shape : public Control {
  public:
    Shape(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::shape, site, name, index, container) {}

    [[nodiscard]] bool filled() const { return filled_; } // else its border line alone
    void setFilled(bool filled) { assign(filled_, filled, Property::look); }

  private:
    bool filled_ = true;
};

class PictureBox : public Control {
  public:
    PictureBox(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::pictureBox, site, name, index, container) {}
};

// An entry of the pop-up menu; the caption "-" is a separator.
class MenuItem : public Control {
  public:
    MenuItem(ControlSite& site, std::string_view name, int index, Frame* container)
        : Control(ControlKind::menuItem, site, name, index, container) {}
};

} // namespace vkr
