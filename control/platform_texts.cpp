// SPDX-License-Identifier: MIT
#include "control/platform_texts.hpp"

#include "form/form_layout.hpp"
#include "platform/error_trap.hpp"

#include <memory>
#include <string>
#include <string_view>

namespace vkr {

namespace {

constexpr int linkPicture = 101;
constexpr int zxProjectionCaption = 613;
constexpr int zxOtherCaption = 614;

} // namespace

void PlatformTexts::createLocalizer() {
    context_.localizer = nullptr;
    const std::string_view id = context_.platform == ptStandard ? standardLocalizerId
                                : context_.platform == ptZX     ? zxLocalizerId
                                                                : std::string_view();
    if (!id.empty())
        ifPossible([&] {
            context_.localizer =
                std::dynamic_pointer_cast<Localizer>(context_.services.createObject(id));
        });
}

void PlatformTexts::startUp() {
    const bool zx = attemptOr(false, [&] {
        return context_.services.applicationTitle().find("VKR ZX ") != std::string::npos;
    });
    context_.platform = zx ? ptZX : ptStandard;
    createLocalizer();
    if (context_.localizer == nullptr)
        context_.message("Bad or missing value object\rData Entry", message_box::exclamationIcon);
    else
        ifPossible(
            [&] { context_.form.setMouseIcon(context_.localizer->LoadPicture(linkPicture, 0)); });
}

void PlatformTexts::load() {
    createLocalizer();
    if (context_.localizer == nullptr) {
        context_.message("Bad or missing Localizer object\rData Entry",
                         message_box::exclamationIcon);
        return;
    }
    ifPossible([&] {
        context_[controls::moreHelp].setMouseIcon(context_.localizer->LoadPicture(linkPicture, 0));
    });
    captions_.pass();
    yearly_.shade();
}

void PlatformTexts::showAlternatives() {
    const Form& form = context_.form;
    for (const auto& row : formLayout())
        if (!row.onZx)
            row.control.find(form)->setVisible(false);
    auto& projection = controls::projectionLabel.in(form);
    projection.setCaption(context_.text(zxProjectionCaption, projection.caption()));
    auto& strip = controls::tabs.in(form);
    strip.setTabCaption(toOther, context_.text(zxOtherCaption, strip.tab(toOther).caption));
}

} // namespace vkr
