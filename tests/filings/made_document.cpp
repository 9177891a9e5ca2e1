// SPDX-License-Identifier: MIT
#include "tests/filings/made_document.hpp"

#include "company/exact_text.hpp"

#include <algorithm>
#include <stdexcept>

namespace vkr {

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

template <typename Items, typename Write>
std::string object(const Items& items, Write write) {
    std::string json;
    for (const auto& [key, value] : items)
        json += (json.empty() ? "" : ",") + quoted(key) + ":" + write(value);
    return "{" + json + "}";
}

} // namespace

MadeDocument& MadeDocument::fact(const std::string& concepts, const std::string& unit,
                                 const std::string& start, const std::string& end,
                                 const std::string& value, const Filing& filing) {
    const auto colon = concepts.find(':');
    facts_[concepts.substr(0, colon)][concepts.substr(colon + 1)][unit].push_back(
        "{" + (start.empty() ? "" : "\"start\":" + quoted(start) + ",") + "\"end\":" + quoted(end) +
        ",\"val\":" + value + ",\"accn\":" + quoted(filing.accession) + ",\"fy\":null,\"form\":" +
        quoted(filing.form) + ",\"filed\":" + quoted(filing.filed) + "}");
    return *this;
}

MadeDocument& MadeDocument::income(const std::string& start, const std::string& end,
                                   const std::string& value, const Filing& filing) {
    return fact("us-gaap:NetIncomeLoss", "USD", start, end, value, filing);
}

std::string MadeDocument::json() const {
    const auto list = [](const std::vector<std::string>& facts) {
        std::string json;
        for (const auto& one : facts)
            json += (json.empty() ? "" : ",") + one;
        return "[" + json + "]";
    };
    return R"({"cik":1,"entityName":)" + quoted(entityName) + R"(,"facts":)" +
           object(facts_,
                  [&](const auto& concepts) {
                      return object(concepts, [&](const auto& units) {
                          return R"({"label":null,"units":)" + object(units, list) + "}";
                      });
                  }) +
           "}";
}

FiledCompany MadeDocument::company() const {
    const auto reading = readFilings(json());
    if (!reading.document)
        throw std::runtime_error(reading.error);
    return filedFigures(*reading.document);
}

const FiledFigure* figureOf(const FiledCompany& company, Datum datum, const std::string& end) {
    const auto figure = std::ranges::find_if(company.figures, [&](const FiledFigure& one) {
        return one.datum == datum && isoDateText(one.end) == end;
    });
    return figure == company.figures.end() ? nullptr : &*figure;
}

bool hasNote(const FiledFigure& figure, const std::string& part) {
    return std::ranges::any_of(figure.notes, [&](const FigureNote& note) {
        return note.text.find(part) != std::string::npos;
    });
}

} // namespace vkr
