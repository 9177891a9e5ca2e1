// SPDX-License-Identifier: MIT
#include "desktop/property_names.hpp"

#include <cctype>

namespace vkr {

QByteArray widgetProperty(const PropertyRow& row) {
    switch (row.property) {
    case EntryProperty::blnDirty:
        return "dirty";
    case EntryProperty::vntSource:
        return "sources";
    case EntryProperty::vntExchange:
        return "exchanges";
    case EntryProperty::vntIndustry:
        return "industries";
    case EntryProperty::blnExistsQuarterlyData: // by component()
    case EntryProperty::objCompany:             // company(), setCompany()
    case EntryProperty::CommEquityData:
    case EntryProperty::TaxRateData:
    case EntryProperty::NumberMarks: // decimalMark and groupingMark
        return {};
    default:
        break;
    }
    QByteArray name(row.name.data(), static_cast<qsizetype>(row.name.size()));
    name[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[0])));
    return name;
}

} // namespace vkr
