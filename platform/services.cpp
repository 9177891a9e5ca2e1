// SPDX-License-Identifier: MIT
#include "platform/services.hpp"

namespace vkr {

void Services::showPaste(PasteForm& form) {
    const int buttons = form.canPaste() ? message_box::yesNo | message_box::questionIcon |
                                              message_box::defaultSecondButton
                                        : message_box::okOnly | message_box::exclamationIcon;
    if (messageBox(form.caption() + "\r\r" + form.summary(), buttons, applicationTitle()) ==
        MessageAnswer::yes)
        form.pressOk();
    else
        form.pressCancel();
}

} // namespace vkr
