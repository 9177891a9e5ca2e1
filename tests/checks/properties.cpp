// SPDX-License-Identifier: MIT
// The page of all properties, for whoever embeds the component or describes its interface.
#include "control/property_table.hpp"
#include "tests/checks/written_page.hpp"

#include <iomanip>
#include <sstream>

namespace {

using vkr::PropertyAccess;
using vkr::PropertyNotice;
using vkr::PropertyRow;
using vkr::PropertyType;

std::string_view typeOf(PropertyType type) {
    switch (type) {
    case PropertyType::boolean:
        return "boolean";
    case PropertyType::shortInteger:
        return "16-bit number";
    case PropertyType::enumeration:
        return "32-bit enumeration";
    case PropertyType::color:
        return "32-bit colour";
    case PropertyType::text:
        return "text";
    case PropertyType::list:
        return "array of texts";
    case PropertyType::company:
        return "record";
    case PropertyType::marks:
        return "two texts";
    }
    return "";
}

std::string_view accessOf(PropertyAccess access) {
    switch (access) {
    case PropertyAccess::read:
        return "read";
    case PropertyAccess::readWrite:
        return "read, write";
    case PropertyAccess::write:
        return "write";
    case PropertyAccess::none:
        return "";
    }
    return "";
}

std::string_view noticeOf(PropertyNotice notice) {
    switch (notice) {
    case PropertyNotice::never:
        return "";
    case PropertyNotice::assigned:
        return "when assigned";
    case PropertyNotice::beforeEffect:
        return "when assigned, before its effect";
    case PropertyNotice::changed:
        return "when changed";
    }
    return "";
}

std::string startOf(const PropertyRow& row) {
    if (row.access == PropertyAccess::read || row.type == PropertyType::list ||
        row.type == PropertyType::company || row.type == PropertyType::marks)
        return "";
    std::ostringstream out;
    if (row.type == PropertyType::text)
        out << '"' << row.start.text << '"';
    else if (row.type == PropertyType::boolean)
        out << (row.start.number == 0 ? "false" : "true");
    else if (row.type == PropertyType::color)
        out << "0x" << std::hex << std::uppercase << row.start.number;
    else
        out << row.start.number;
    return out.str();
}

std::string place(int number) {
    return number == 0 ? std::string() : std::to_string(number);
}

std::string page() {
    std::ostringstream out;
    out << "<!-- SPDX-License-Identifier: MIT -->\n"
           "<!-- Written by vkr_properties; the table is in control/property_rows.hpp. -->\n"
           "# Properties\n\n"
           "In the order of the interface; below the line what a container keeps or hears of "
           "beyond it.\n\"Notice\" is when the container hears of a change, \"saved\" and "
           "\"restored\" are the places in the\norder in which a property bag is written and "
           "read. The start value is the default of the bag: it\nis not stored.\n\n"
           "| property | type | access | start | notice | saved | restored | meaning |\n"
           "|---|---|---|---|---|---|---|---|\n";
    int number = 0;
    for (const auto& row : vkr::propertyTable()) {
        if (number++ == vkr::interfaceProperties)
            out << "| | | | | | | | |\n";
        out << "| `" << row.name << "` | " << typeOf(row.type) << " | " << accessOf(row.access)
            << " | " << vkr::cell(startOf(row)) << " | " << noticeOf(row.notice) << " | "
            << place(row.bag.saved) << " | " << place(row.bag.restored) << " | "
            << vkr::cell(row.meaning) << " |\n";
    }
    return out.str();
}

} // namespace

int main(int argc, char** argv) {
    return vkr::checkOrWrite(argc, argv, page());
}
