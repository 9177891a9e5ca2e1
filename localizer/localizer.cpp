// SPDX-License-Identifier: MIT
#include "localizer/localizer.hpp"

#include <memory>
#include <string_view>
#include <utility>

namespace vkr {
namespace {

constexpr int linkHandNumber = 101;
constexpr int defaultKind = 0;

constexpr std::string_view linkHand =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">)"
    R"(<path d="M11 4a2 2 0 0 1 4 0v9a2 2 0 0 1 4 0v1a2 2 0 0 1 4 0v1a2 2 0 0 1 4 0v7)"
    R"(c0 4.5-2.8 7-7 7h-3c-3 0-5-1.3-6.6-3.8L5.6 19.4c-1.5-2.4 1-4.4 3-2.7L11 18.8z" )"
    R"(fill="#fff" stroke="#000" stroke-width="1.5" stroke-linejoin="round"/>)"
    R"(<path d="M15 13v5M19 14v4M23 15v3" fill="none" stroke="#000" stroke-width="1.2" )"
    R"(stroke-linecap="round"/>)"
    R"(</svg>)";

} // namespace

TableLocalizer::TableLocalizer(std::vector<StringTable> tables) : tables_(std::move(tables)) {}

std::string TableLocalizer::LoadString(int number) const {
    for (const StringTable table : tables_) {
        if (const std::string_view text = findString(table, number); !text.empty())
            return std::string(text);
    }
    return {};
}

Picture TableLocalizer::LoadPicture(int number, int kind) const {
    if (number != linkHandNumber || kind != defaultKind)
        return {};
    return {linkHandNumber, std::string(linkHand)};
}

StandardLocalizer::StandardLocalizer() : TableLocalizer({standardStrings()}) {}

ZxLocalizer::ZxLocalizer() : TableLocalizer({zxStrings(), standardStrings()}) {}

void registerLocalizers(ObjectFactory& factory) {
    factory.add(standardLocalizerId, [] { return std::make_shared<StandardLocalizer>(); });
    factory.add(zxLocalizerId, [] { return std::make_shared<ZxLocalizer>(); });
}

} // namespace vkr
