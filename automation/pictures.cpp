// SPDX-License-Identifier: MIT
#include "automation/pictures.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace vkr::automation {

namespace {

std::string base64(const std::uint8_t* bytes, std::size_t count) {
    static constexpr char digits[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < count; i += 3) {
        const std::size_t left = count - i;
        const std::uint32_t three = (std::uint32_t{bytes[i]} << 16U) |
                                    (left > 1 ? std::uint32_t{bytes[i + 1]} << 8U : 0U) |
                                    (left > 2 ? std::uint32_t{bytes[i + 2]} : 0U);
        text += digits[three >> 18U];
        text += digits[(three >> 12U) & 63U];
        text += left > 1 ? digits[(three >> 6U) & 63U] : '=';
        text += left > 2 ? digits[three & 63U] : '=';
    }
    return text;
}

// The file that the picture would be saved as.
std::string embedded(IPicture& picture) {
    ComPtr<IStream> stream;
    check(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()));
    LONG size = 0;
    check(picture.SaveAsFile(stream.get(), TRUE, &size));
    HGLOBAL memory = nullptr;
    check(GetHGlobalFromStream(stream.get(), &memory));
    const auto* const bytes = static_cast<const std::uint8_t*>(GlobalLock(memory));
    STATSTG status{};
    if (bytes == nullptr || FAILED(stream->Stat(&status, STATFLAG_NONAME)))
        throw ComError(E_OUTOFMEMORY);
    std::string text = base64(bytes, static_cast<std::size_t>(status.cbSize.QuadPart));
    GlobalUnlock(memory);
    return text;
}

std::string kindOf(IPicture& picture) {
    SHORT type = PICTYPE_NONE;
    check(picture.get_Type(&type));
    return type == PICTYPE_ICON     ? "image/x-icon"
           : type == PICTYPE_BITMAP ? "image/bmp"
                                    : "image/emf";
}

} // namespace

ComPtr<IPictureDisp> outsidePicture(const Picture& picture) {
    if (picture.empty())
        return {};
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_ICON;
    description.icon.hicon = CopyIcon(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND)));
    ComPtr<IPictureDisp> made;
    check(OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, made.receiveAny()));
    return made;
}

Picture insidePicture(int number, const VARIANT& value) {
    if (V_VT(&value) == VT_EMPTY || V_VT(&value) == VT_NULL)
        return {};
    if (V_VT(&value) != VT_DISPATCH && V_VT(&value) != VT_UNKNOWN)
        throw ComError(DISP_E_TYPEMISMATCH);
    if (V_UNKNOWN(&value) == nullptr)
        return {};
    const auto picture = queryFor<IPicture>(V_UNKNOWN(&value));
    if (!picture)
        throw ComError(DISP_E_TYPEMISMATCH);
    return {number, "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"32\" height=\"32\" "
                    "viewBox=\"0 0 32 32\"><image width=\"32\" height=\"32\" href=\"data:" +
                        kindOf(*picture.get()) + ";base64," + embedded(*picture.get()) +
                        "\"/></svg>"};
}

} // namespace vkr::automation
