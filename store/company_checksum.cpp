// SPDX-License-Identifier: MIT
#include "store/company_checksum.hpp"

#include "store/checksum.hpp"

namespace vkr {

namespace {

void addSeries(Checksum& checksum, std::string_view name, const VariantArray& series) {
    bool isNamed = false;
    for (int i = series.lower(); i <= series.upper(); ++i) {
        const double figure = series.number(i);
        if (figure == 0)
            continue;
        if (!isNamed)
            checksum.addText(name);
        isNamed = true;
        checksum.add(i);
        checksum.add(figure);
    }
}

struct Add {
    Checksum& checksum;
    std::string_view name;

    void operator()(const std::string& text) const {
        if (text.empty())
            return;
        checksum.addText(name);
        checksum.addText(text);
    }
    void operator()(const Date& date) const { (*this)(date.serial); }
    void operator()(double number) const {
        if (number == 0)
            return;
        checksum.addText(name);
        checksum.add(number);
    }
    void operator()(std::int16_t number) const { (*this)(static_cast<double>(number)); }
    void operator()(std::int32_t number) const { (*this)(static_cast<double>(number)); }
    void operator()(bool flag) const { (*this)(flag ? 1.0 : 0.0); }
    void operator()(const VariantArray& series) const { addSeries(checksum, name, series); }
    template <typename Other>
    void operator()(const Other& /*none*/) const {}
};

} // namespace

std::int64_t checksumOf(const SealedCompany& company) {
    Checksum checksum;
    checksum.add(company.id);
    checksum.add(company.revision);
    for (const std::string_view text :
         {company.savedBy, company.savedAt, company.figures, company.origins})
        checksum.addText(text);
    for (const DatumRow& row : datumTable())
        std::visit(Add{checksum, row.name}, company.record.stored(row.datum).value());
    const auto settings = company.record.get_Settings();
    for (const std::string_view name : settingNames())
        std::visit(Add{checksum, name}, settings->get(name).value());
    return checksum.value();
}

} // namespace vkr
