// SPDX-License-Identifier: MIT
#include "store/store_columns.hpp"

#include "company/company_record.hpp"

namespace vkr {

namespace {

StoreColumn::Kind kindOf(const DatumRow& row) {
    static constexpr StoreColumn::Kind kinds[] = {
        StoreColumn::Kind::text, StoreColumn::Kind::number, StoreColumn::Kind::integer,
        StoreColumn::Kind::date};
    return kinds[row.access.index()];
}

} // namespace

const std::vector<StoreColumn>& storeColumns() {
    static const std::vector<StoreColumn> columns = [] {
        std::vector<StoreColumn> all;
        const auto name = [](std::string_view text) {
            return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        };
        for (const DatumRow& row : datumTable())
            if (!isSeries(row))
                all.push_back({name(row.name), kindOf(row), row.datum});
        const CompanyRecord empty;
        for (const auto setting : settingNames()) {
            const bool isText = empty.get_Settings()->get(setting).varType() == Variant::vtString;
            all.push_back({name(setting),
                           isText ? StoreColumn::Kind::text : StoreColumn::Kind::integer, setting});
        }
        return all;
    }();
    return columns;
}

} // namespace vkr
