// SPDX-License-Identifier: MIT
#include "platform/nearest_double.hpp"

#include <version>

#ifdef __cpp_lib_to_chars
#include <charconv>
#else
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#endif

namespace vkr {

#ifdef __cpp_lib_to_chars

std::optional<double> nearestDouble(std::string_view number) {
    double value = 0;
    const char* end = number.data() + number.size();
    const auto [stop, fault] = std::from_chars(number.data(), end, value);
    return fault == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

#else // a library that reads no doubles without a stream

std::optional<double> nearestDouble(std::string_view number) {
    std::istringstream stream{std::string(number)};
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    if (!stream.eof())
        return std::nullopt;
    // A failure is told of the smallest ones too, which are exact all the same.
    const double size = std::abs(value);
    if (stream.fail() && (size == 0 || size >= std::numeric_limits<double>::max()))
        return std::nullopt;
    return value;
}

#endif

} // namespace vkr
