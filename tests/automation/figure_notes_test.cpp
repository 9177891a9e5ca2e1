// SPDX-License-Identifier: MIT
// What a container says of figures: where they come from, and what there is to look at.
#include "tests/automation/control_fixture.hpp"

#include <oleacc.h>
#include <vector>

namespace vkr::automation {
namespace {

using Row = std::vector<Variant>;

Variant rows(const std::vector<Row>& all) {
    std::vector<Variant> items;
    for (const Row& one : all)
        items.emplace_back(VariantArray(0, one));
    return VariantArray(0, std::move(items));
}

struct FigureNotes : Control {
    ComPtr<::iVKR_Company> company = library.create<::iVKR_Company>(__uuidof(::Company));

    FigureNotes() {
        std::vector<double> years(11, 0);
        years[1] = 7.25;
        EXPECT_EQ(putByName(company.get(), "LastFY", std::int16_t{2025}).result, S_OK);
        EXPECT_EQ(putByName(company.get(), "YEPSSeries", numberArray(years)).result, S_OK);
        EXPECT_EQ(company->put_TotalDebt(1234.5), S_OK);
        open(company.get());
    }
    // What a screen reader says of a field besides its name; it gets the focus.
    std::string heard(std::string_view field) {
        EXPECT_EQ(control->ShowField(Bstr(field).get()), S_OK);
        void* found = nullptr;
        EXPECT_EQ(AccessibleObjectFromWindow(GetFocus(), static_cast<DWORD>(OBJID_CLIENT),
                                             __uuidof(IAccessible), &found),
                  S_OK);
        const auto object = ComPtr<IAccessible>::owned(static_cast<IAccessible*>(found));
        VARIANT self;
        V_VT(&self) = VT_I4;
        V_I4(&self) = CHILDID_SELF;
        Bstr text;
        object->get_accDescription(self, text.receive());
        return textOf(text.get());
    }
    // The colour next to the field's corner at the left, as it is on the screen.
    COLORREF corner(std::string_view field) {
        EXPECT_EQ(control->ShowField(Bstr(field).get()), S_OK);
        const HWND window = GetFocus();
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
        const HDC context = GetWindowDC(window);
        const COLORREF color = GetPixel(context, 2, 2);
        ReleaseDC(window, context);
        return color;
    }
    Called tell(const char* property, const Variant& value) {
        return putByName(dispatch(), property, value);
    }
};

TEST_F(FigureNotes, WhereFiguresComeFromIsToldAndMarked) {
    const COLORREF plain = corner("txtTotalDebt");
    EXPECT_EQ(tell("Origins", rows({{"TotalDebt", Variant(), "Imported from a filing.", true},
                                    {"YEPSSeries", std::int16_t{1}, "Typed.", false}}))
                  .result,
              S_OK);
    EXPECT_EQ(heard("txtTotalDebt"), "Imported from a filing.");
    EXPECT_NE(corner("txtTotalDebt"), plain);
    EXPECT_EQ(heard("txtYEPS(9)"), "Typed.");
    EXPECT_EQ(heard("txtYEPS(8)"), "");
    EXPECT_EQ(tell("Origins", rows({{"YEPSSeries", 2, "Pasted.", true}})).result, S_OK);
    EXPECT_EQ(heard("txtYEPS(9)"), "");
    EXPECT_EQ(heard("txtYEPS(8)"), "Pasted.");
    EXPECT_EQ(heard("txtTotalDebt"), "");
    EXPECT_EQ(corner("txtTotalDebt"), plain);
    EXPECT_EQ(tell("Origins", Variant()).result, S_OK);
    EXPECT_EQ(heard("txtYEPS(8)"), "");
    takeAway();
}

TEST_F(FigureNotes, RemarksAreToldUntilThereIsAnotherRecord) {
    EXPECT_EQ(tell("Remarks", rows({{"TotalDebt", Variant(), "Twice as much as before."}})).result,
              S_OK);
    EXPECT_EQ(heard("txtTotalDebt"), "Twice as much as before.");
    EXPECT_EQ(control->putref_objCompany(company.get()), S_OK);
    EXPECT_EQ(heard("txtTotalDebt"), "");
    takeAway();
}

TEST_F(FigureNotes, OneRowThatIsNoneRefusesThemAll) {
    EXPECT_EQ(tell("Origins", rows({{"TotalDebt", Variant(), "Imported.", true}})).result, S_OK);
    const Row good{"YEPSSeries", 1, "Typed.", false};
    struct Wrong {
        Row row;
        const char* told;
    };
    const Wrong wrongs[] = {
        {{"Debt", Variant(), "x", true}, "There is no datum \"Debt\"."},
        {{"TotalDebt", 1, "x", true}, "TotalDebt has no elements."},
        {{"YEPSSeries", Variant(), "x", true}, "YEPSSeries has the elements 0 to 10."},
        {{"YEPSSeries", 11, "x", true}, "YEPSSeries has the elements 0 to 10."},
        {{"YEPSSeries", -1, "x", true}, "YEPSSeries has the elements 0 to 10."},
        {{"YEPSSeries", 1.5, "x", true}, "YEPSSeries has the elements 0 to 10."},
        {{"YEPSSeries", 1e300, "x", true}, "YEPSSeries has the elements 0 to 10."},
        {{"YEPSSeries", "one", "x", true}, "YEPSSeries has the elements 0 to 10."},
        {{"YEPSSeries", 1, 7, true}, "The datum and what is said of it are texts."},
        {{"YEPSSeries", 1, "x", "perhaps"}, "Whether the corner is marked is True or False."},
        {{"YEPSSeries", 1, "x"}, "Each row is an array of 4."},
        {{}, "Each row is an array of 4."}};
    for (const Wrong& wrong : wrongs) {
        SCOPED_TRACE(wrong.told);
        const Called called = tell("Origins", rows({good, wrong.row}));
        EXPECT_EQ(called.result, DISP_E_EXCEPTION);
        EXPECT_EQ(called.told, wrong.told);
        EXPECT_EQ(heard("txtTotalDebt"), "Imported.");
        EXPECT_EQ(heard("txtYEPS(9)"), "");
    }
    EXPECT_TRUE(FAILED(tell("Origins", 7).result));
    EXPECT_TRUE(FAILED(tell("Remarks", "x").result));
    EXPECT_EQ(heard("txtTotalDebt"), "Imported.");
    takeAway();
}

TEST_F(FigureNotes, AFigureIsBroughtOnShow) {
    const auto show = [&](const Variant& datum, const Variant& element) {
        return callByName(dispatch(), "ShowFigure", {datum, element});
    };
    EXPECT_EQ(show("YEPSSeries", 1).value, Variant(true));
    EXPECT_EQ(getByName(dispatch(), "CurrentTab").toLong(), 2);
    wchar_t text[100] = {};
    GetWindowTextW(GetFocus(), text, 100);
    EXPECT_EQ(textOf(std::wstring_view(text)), "7.25");
    EXPECT_EQ(show("TOTALDEBT", Variant()).value, Variant(true));
    EXPECT_EQ(getByName(dispatch(), "CurrentTab").toLong(), 1);
    EXPECT_EQ(show("QEPSSeries", 34).value, Variant(false)); // older than the grid goes
    EXPECT_EQ(show("Nothing", 0).told, "There is no datum \"Nothing\".");
    VARIANT missing;
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    VARIANT_BOOL shown = VARIANT_FALSE;
    EXPECT_EQ(control->ShowFigure(Bstr("TotalDebt").get(), missing, &shown), S_OK);
    EXPECT_EQ(shown, VARIANT_TRUE);
    // A datum that has no elements needs none, nor does it by name.
    EXPECT_EQ(callByName(dispatch(), "ShowFigure", {"CurrentPrice"}).value, Variant(true));
    EXPECT_EQ(callByName(dispatch(), "ShowFigure", {"YEPSSeries"}).told,
              "YEPSSeries has the elements 0 to 10.");
    EXPECT_EQ(callByName(dispatch(), "ShowFigure", {}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(callByName(dispatch(), "ShowFigure", {"YEPSSeries", 1, 2}).result,
              DISP_E_BADPARAMCOUNT);
    takeAway();
}

// Somebody else has changed the record: what is being typed stays, nothing is written.
TEST_F(FigureNotes, ARecordThatHasChangedIsShownAnew) {
    EXPECT_EQ(company->put_Name(Bstr("Acme").get()), S_OK);
    EXPECT_EQ(company->put_CurrentPrice(3), S_OK);
    type("txtTotalDebt", "77");
    EXPECT_EQ(control->RecordChanged(), S_OK);
    double debt = 0;
    EXPECT_EQ(company->get_TotalDebt(&debt), S_OK);
    EXPECT_EQ(debt, 1234.5);
    wchar_t text[100] = {};
    GetWindowTextW(GetFocus(), text, 100);
    EXPECT_EQ(textOf(std::wstring_view(text)), "77");
    EXPECT_EQ(shown("txtName"), "Acme");
    EXPECT_EQ(shown("txtCurrentPrice"), "3.000");
    takeAway();
}

} // namespace
} // namespace vkr::automation
