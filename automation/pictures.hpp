// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "platform/localizer.hpp"

namespace vkr::automation {

// A picture of a localizer of this library as a picture object: an icon. Its only picture is the
// hand of a link, which is that of the system. Nothing for an empty picture.
[[nodiscard]] ComPtr<IPictureDisp> outsidePicture(const Picture& picture);

// A picture object as a picture of the component: the image itself, embedded. Empty for nothing;
// throws for what is no picture.
[[nodiscard]] Picture insidePicture(int number, const VARIANT& value);

} // namespace vkr::automation
