// SPDX-License-Identifier: MIT
#pragma once

#include "control/vkr_data_entry_events.hpp"
#include "form/sizes.hpp"
#include "platform/form.hpp"
#include "platform/property_bag.hpp"
#include "platform/services.hpp"
#include "record/actions.hpp"
#include "record/datum_changes.hpp"
#include "record/datum_table.hpp"
#include "record/enumerations.hpp"
#include "record/figure_place.hpp"
#include "record/ivkr_company.hpp"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// A field with a mark: its text is not in the record, such as a date that is none, or says more
// than what was stored.
struct MarkedField {
    // "txtPriceUpdate"; "YPTISeries(3)" where the figure is in a row or quarter that is not on
    // show, which showField() takes, too.
    std::string control;
    std::string label;  // as people read it on the form
    std::string text;   // as it is on screen, or waits to be
    std::string reason; // why it can't be stored, or what was left out
};

// The data-entry component. All calls belong to the thread of the desktop; none of them throws.
//
// A host creates it with the services of its desktop, sets the lists and display properties,
// hands in a record with put_objCompany, and reads it back with get_objCompany. Hosts that let
// Cancel discard changes hand in a copy of their record.
class VKRDataEntry {
  public:
    // Runs the start-up. `services` must outlive the component.
    explicit VKRDataEntry(Services& services);
    ~VKRDataEntry();
    VKRDataEntry(const VKRDataEntry&) = delete;
    VKRDataEntry& operator=(const VKRDataEntry&) = delete;

    void setEvents(VKRDataEntryEvents* events); // null: nobody listens

    // The controls, for adapters and tests.
    [[nodiscard]] Form& form();
    [[nodiscard]] const Form& form() const;

    // --- properties, in the order of the interface ------------------------------------------
    // Whether any quarterly figure is in the record or on screen.
    [[nodiscard]] bool blnExistsQuarterlyData() const;
    // True once the user has changed something; false at first. Writing false commits the form into
    // the record.
    [[nodiscard]] bool get_blnDirty() const;
    void put_blnDirty(bool blnNewValue);
    // umDefault at first.
    [[nodiscard]] UserModeType get_UserMode() const;
    void put_UserMode(UserModeType enumNewValue);
    // 24-bit blue-green-red; the three shades are colors::paleCyan at first.
    [[nodiscard]] Color get_ShadeColorLocked() const;
    void put_ShadeColorLocked(Color newValue);
    [[nodiscard]] Color get_ShadeColorYear() const;
    void put_ShadeColorYear(Color newValue);
    [[nodiscard]] Color get_ShadeColorQuarter() const;
    void put_ShadeColorQuarter(Color newValue);
    // Rows of the quarterly grid, 1 to 35; others are cut to that. 9 at first.
    [[nodiscard]] std::int16_t get_VisibleQuarters() const;
    void put_VisibleQuarters(std::int16_t intNewValue);
    // Both false at first.
    [[nodiscard]] bool get_ShowReportingPeriod() const;
    void put_ShowReportingPeriod(bool blnNewValue);
    [[nodiscard]] bool get_ShowVLs() const;
    void put_ShowVLs(bool blnNewValue);
    // The selected tab, toCompany at first. An index that no tab has is ignored.
    [[nodiscard]] TABObject get_CurrentTab() const;
    void put_CurrentTab(TABObject enumNewValue);
    // Display patterns; what is on screen changes with the next load or edit. At first "#0.00%",
    // "MMM/DD/YYYY" and "#0.00".
    [[nodiscard]] const std::string& get_PercentFormat() const;
    void put_PercentFormat(std::string_view strNewValue);
    [[nodiscard]] const std::string& get_DateFormat() const;
    void put_DateFormat(std::string_view strNewValue);
    [[nodiscard]] const std::string& get_NumberFormat() const;
    void put_NumberFormat(std::string_view strNewValue);
    // Prices in eighths instead of decimals; false at first.
    [[nodiscard]] bool get_FractionDisplay() const;
    void put_FractionDisplay(bool blnNewValue);
    // The decimal mark (point or comma) and what groups thousands, of figures on the form: "." and
    // "," at first. The record and the patterns always have the point. All figures are shown anew,
    // one that is being typed with the other marks; blnDirty stays as it is.
    [[nodiscard]] const NumberMarks& get_NumberMarks() const;
    void put_NumberMarks(const NumberMarks& newValue);
    // Lists of the three drop-down fields; a value that is no array leaves the list as it is.
    void put_vntSource(const Variant& vntNewValue);
    void put_vntExchange(const Variant& vntNewValue);
    void put_vntIndustry(const Variant& vntNewValue);
    // BorderStyle::none at first.
    [[nodiscard]] BorderStyle get_BorderStyle() const;
    void put_BorderStyle(BorderStyle newValue);
    // Reading commits the form into the record. Call leaveField() first where the user may still
    // be typing. Null until the first assignment; assigning null makes an empty record.
    [[nodiscard]] std::shared_ptr<iVKR_Company> get_objCompany();
    void put_objCompany(std::shared_ptr<iVKR_Company> objNewValue);
    // ptStandard at first; its localizer comes with the first assignment.
    [[nodiscard]] PlatformType get_Platform() const;
    void put_Platform(PlatformType enumNewValue);

    // --- methods -------------------------------------------------------------------------------
    void SetNext();
    void SetPrevious();
    void Clear();
    // Mouse-wheel motion as arrow keys (keys::up, keys::down); intShift is ignored.
    void ScrollMouse(std::int16_t& intKeyCode, std::int16_t& intShift);

    // --- what else a host needs ---------------------------------------------------------------
    // Leaves the field that has the focus as if the user had moved on, and comes back to it.
    void leaveField();
    [[nodiscard]] std::vector<MarkedField> unstoredFields() const;
    // Fields whose figure was stored though not all that was typed or pasted: "1.5M" as 1.5. Such a
    // doubt goes with the next edit of its field, or by Enter in it.
    [[nodiscard]] std::vector<MarkedField> doubtfulFields() const;
    // Copies the selected cells of the grid that has the focus, or the cell, as text with tabs: all
    // digits, in the currency unit and with the decimal mark of the form, so that pasting it again
    // gives the same figures. Headings are those of the columns above, with their units, and years
    // or quarters (as 2024-03-31) beside them. False where no cell has the focus,
    // and where the clipboard takes nothing.
    bool copyCells();
    bool copyCellsWithHeadings();
    // Brings a field, named as in MarkedField, on show with its tab and moves the focus there.
    void showField(std::string_view control);
    // What whoever looks over the figures has to say of them, such as companyFindings(): a quiet
    // mark at the field of each, with the text for its reason, where the field has no graver one.
    // In place of those before; handing in another record, and Clear, take them away.
    void setRemarks(std::map<FigurePlace, std::string> remarks);
    // Where figures come from, in words for people, such as FigureOrigins knows it: told with the
    // field of each, and by a small corner where the host wants that. In place of those before;
    // handing in another record, and Clear, take them away.
    void setOrigins(std::map<FigurePlace, FieldOrigin> origins);
    // Brings the field of a figure or date on show with its tab, and moves the focus there with all
    // of its text selected; of a pair of rows that of the row on show. False where the form shows
    // neither.
    bool showFigure(const FigurePlace& place);
    // The field that showFigure would go to, named as in MarkedField; "" where the form shows
    // neither.
    [[nodiscard]] std::string fieldOf(const FigurePlace& place) const;
    // Puts into a copy of the record what reading objCompany would put into the record, which stays
    // as it is: for a host that asks what would be saved.
    void commitInto(std::shared_ptr<iVKR_Company> copy);
    // To be called when somebody else than the form has changed the record that is held, such as a
    // host that takes a change back. Shows its data anew; nothing is committed, nothing written,
    // and nothing worked out. Tab, focus and scroll positions stay, and so does blnDirty: whoever
    // has changed the record knows whether that is to be saved. A text that is being typed stays as
    // it is, over the figure that is stored now, and so do texts that could not be stored; in a
    // grid whose periods have moved they go with theirs. Choices that a commit has not written yet
    // stay, unless the record has another setting than the form has last seen there.
    void recordChanged();
    // Changes many data as one action, all or none: leaves the field that has the focus, writes,
    // works out the trailing earnings where quarters or years have moved, shows the data anew and
    // marks the company as changed. No value where all are there. A value where they are not: the
    // record's words, which may be empty, or a sentence where the data is locked.
    [[nodiscard]] std::optional<std::string> changeRecord(std::span<const DatumChange> changes,
                                                          const Action& action);
    // What Ctrl+Z does, and Ctrl+Y or Ctrl+Shift+Z, for a host's menu: a field that is being typed
    // in takes back or repeats its own edits, any other hands on to historyAsked.
    void step(HistoryStep step);
    // Asked for a step beyond the field that has the focus. True where the host has taken one, and
    // has called recordChanged; false where there is none. Not asked while the data is locked.
    // Where no function is set the keys are the field's and the host's as they come.
    std::function<bool(HistoryStep)> historyAsked;
    // The dates that handing in the record has written into it because it had none, and that nobody
    // has typed or picked since: of LastQDate, LastFYDate, PriceUpdatedDate and LastUpdate.
    [[nodiscard]] std::vector<Datum> suggestedDates() const;
    // Called after every change that the user makes, of blnDirty and of the record's identity
    // (name, symbol), when what changed it is done.
    std::function<void()> stateChanged;
    // Asked where the figure comes from that a series has at an element; nothing where that is not
    // known. A paste tells which typed figures it replaces. May be null.
    std::function<std::optional<Origin>(Datum series, int element)> originOf;
    // Called after every change of FractionDisplay, by the host or by the user.
    std::function<void()> fractionDisplayChanged;

    // --- lifecycle, called by the container ------------------------------------------------------
    void InitProperties();                       // placed for the first time
    void ReadProperties(const PropertyBag& bag); // re-created from a saved set
    void WriteProperties(PropertyBag& bag);      // saved; shows the remembered tab
    void Resize(Twips width, Twips height);      // the container changed the size

    static constexpr Twips workingWidth = sizes::workingWidth;
    static constexpr Twips workingHeight = sizes::workingHeight;

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace vkr
