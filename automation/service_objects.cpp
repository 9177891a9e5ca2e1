// SPDX-License-Identifier: MIT
#include "automation/service_objects.hpp"

#include "automation/company_object.hpp"
#include "automation/late_bound.hpp"
#include "automation/pictures.hpp"
#include "automation/texts.hpp"
#include "automation/type_library.hpp"
#include "automation/variants.hpp"
#include "binding/trailing_earnings.hpp"
#include "company/new_company_record.hpp"
#include "localizer/localizer.hpp"

#include <functional>
#include <optional>
#include <utility>
#include <vkr_data_entry.h>

namespace vkr::automation {

namespace {

// --- ours, seen outside --------------------------------------------------------------------------

class LocalizerObject final : public Dual<::iVKR_Localizer, Library::entry> {
  public:
    explicit LocalizerObject(std::unique_ptr<Localizer> localizer)
        : localizer_(std::move(localizer)) {}

    HRESULT STDMETHODCALLTYPE LoadString(LONG number, BSTR* text) override {
        return guarded(this, __uuidof(::iVKR_Localizer), [&] {
            answer(text) = nullptr;
            *text = newBstr(localizer_->LoadString(number));
        });
    }
    HRESULT STDMETHODCALLTYPE LoadPicture(LONG number, SHORT kind,
                                          IPictureDisp** picture) override {
        return guarded(this, __uuidof(::iVKR_Localizer), [&] {
            answer(picture) = nullptr;
            *picture = outsidePicture(localizer_->LoadPicture(number, kind)).detach();
        });
    }

  private:
    std::unique_ptr<Localizer> localizer_;
};

class EarningsObject final : public Dual<::iVKR_TrailingEarnings, Library::company> {
  public:
    HRESULT STDMETHODCALLTYPE LastFour(DATE lastQuarter, DATE newestQuarter, VARIANT quarterly,
                                       double yearly, DATE fiscalYearEnd, VARIANT* sum) override {
        return guarded(this, __uuidof(::iVKR_TrailingEarnings), [&] {
            VariantInit(&answer(sum));
            const auto told =
                newTrailingEarnings()->lastFour({Date{lastQuarter}, Date{newestQuarter},
                                                 seriesIn(quarterly), yearly, Date{fiscalYearEnd}});
            *sum = newVariant(told ? Variant(*told) : Variant());
        });
    }
};

// --- somebody else's, seen inside ----------------------------------------------------------------

class ForeignLocalizer final : public Localizer {
  public:
    explicit ForeignLocalizer(ComPtr<IDispatch> object) : object_(std::move(object)) {}

    [[nodiscard]] std::string LoadString(int number) const override {
        OwnedVariant text;
        object_.call("LoadString", {number}, text);
        return textIn(text.get());
    }
    [[nodiscard]] Picture LoadPicture(int number, int kind) const override {
        OwnedVariant picture;
        object_.call("LoadPicture", {number, static_cast<std::int16_t>(kind)}, picture);
        return insidePicture(number, picture.get());
    }

  private:
    LateBound object_;
};

class ForeignEarnings final : public TrailingEarnings {
  public:
    explicit ForeignEarnings(ComPtr<IDispatch> object) : object_(std::move(object)) {}

    [[nodiscard]] std::optional<double> lastFour(const EarningsInput& input) override {
        OwnedVariant sum;
        object_.call("LastFour",
                     {input.lastQuarter, input.newestQuarter, input.quarterly, input.yearly,
                      input.fiscalYearEnd},
                     sum);
        if (fromVariant(sum.get()).isEmpty())
            return std::nullopt;
        return numberIn(sum.get());
    }

  private:
    LateBound object_;
};

// --- by identifier -------------------------------------------------------------------------------

struct Known {
    std::string_view programmaticId;
    CLSID own;
    std::shared_ptr<Object> (*create)();
    std::shared_ptr<Object> (*wrap)(ComPtr<IDispatch>);
};

template <typename Wrapper>
std::shared_ptr<Object> wrapped(ComPtr<IDispatch> object) {
    return std::make_shared<Wrapper>(std::move(object));
}

const Known* known(std::string_view programmaticId) {
    static const Known table[] = {
        {standardLocalizerId, __uuidof(::StandardLocalizer),
         [] { return std::shared_ptr<Object>(std::make_shared<vkr::StandardLocalizer>()); },
         wrapped<ForeignLocalizer>},
        {zxLocalizerId, __uuidof(::ZxLocalizer),
         [] { return std::shared_ptr<Object>(std::make_shared<vkr::ZxLocalizer>()); },
         wrapped<ForeignLocalizer>},
        {companyRecordId, __uuidof(::Company),
         [] { return std::shared_ptr<Object>(newCompanyRecord()); },
         [](ComPtr<IDispatch> object) {
             return std::shared_ptr<Object>(insideRecord(object.get()));
         }},
        {trailingEarningsId, __uuidof(::TrailingEarnings),
         [] { return std::shared_ptr<Object>(newTrailingEarnings()); }, wrapped<ForeignEarnings>},
    };
    for (const Known& one : table)
        if (one.programmaticId == programmaticId)
            return &one;
    return nullptr;
}

} // namespace

ComPtr<IUnknown> newStandardLocalizer() {
    return ComPtr<IUnknown>(static_cast<::iVKR_Localizer*>(
        makeCom<LocalizerObject>(std::make_unique<vkr::StandardLocalizer>()).get()));
}
ComPtr<IUnknown> newZxLocalizer() {
    return ComPtr<IUnknown>(static_cast<::iVKR_Localizer*>(
        makeCom<LocalizerObject>(std::make_unique<vkr::ZxLocalizer>()).get()));
}
ComPtr<IUnknown> newEarningsObject() {
    return ComPtr<IUnknown>(static_cast<::iVKR_TrailingEarnings*>(makeCom<EarningsObject>().get()));
}

std::shared_ptr<Object> createdObject(std::string_view programmaticId) {
    const Known* const row = known(programmaticId);
    CLSID id{};
    const bool registered = SUCCEEDED(CLSIDFromProgID(wideOf(programmaticId).c_str(), &id));
    if (row == nullptr) {
        ComPtr<IDispatch> object;
        if (!registered || FAILED(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch,
                                                   object.receiveAny())))
            return nullptr;
        return lateBound(object.get());
    }
    if (!registered || IsEqualGUID(id, row->own))
        return row->create();
    ComPtr<IDispatch> object;
    if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, object.receiveAny())))
        return nullptr;
    return row->wrap(std::move(object));
}

} // namespace vkr::automation
