// SPDX-License-Identifier: MIT
#include "filings/filings_document.hpp"

#include "company/exact_text.hpp"
#include "filings/concepts.hpp"
#include "filings/json_bounds.hpp"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <stdexcept>

namespace vkr {

namespace {

constexpr double largestExact = 9'007'199'254'740'992; // whole numbers beyond it are rounded

std::string text(const QString& value) {
    return value.toStdString();
}

// What is wrong with the document; ends the reading of all of it.
class Unreadable : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Where in the document one is, for messages: "us-gaap:NetIncomeLoss in USD, entry 17".
struct Place {
    std::string name;
    qsizetype entry = 0; // from 1; 0 for the concept itself

    [[noreturn]] void refuse(const std::string& what) const {
        throw Unreadable(name + (entry == 0 ? "" : ", entry " + std::to_string(entry)) + ": " +
                         what);
    }
};

// Objects of the document: an absent one or one of another kind ends the reading.
QJsonObject objectOf(const QJsonValue& value, const Place& place) {
    if (!value.isObject())
        place.refuse("not as such documents have it.");
    return value.toObject();
}

// Nothing where the field is absent or null.
std::optional<std::string> textField(const QJsonObject& fact, const char* key, const Place& place) {
    const QJsonValue value = fact.value(QLatin1String(key));
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    if (!value.isString())
        place.refuse("\"" + std::string(key) + "\" is no text.");
    std::string held = text(value.toString());
    if (held.size() > 64)
        place.refuse("\"" + std::string(key) + "\" is too long.");
    return held;
}

std::optional<Date> dateField(const QJsonObject& fact, const char* key, const Place& place) {
    const auto held = textField(fact, key, place);
    if (!held)
        return std::nullopt;
    const auto date = dateFromIso(*held);
    if (!date)
        place.refuse("\"" + std::string(key) + "\" is no date: " + *held);
    return date;
}

std::optional<double> valueField(const QJsonObject& fact, const Place& place) {
    const QJsonValue value = fact.value(QLatin1String("val"));
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    if (!value.isDouble())
        place.refuse("the value is no number.");
    const double held = value.toDouble();
    if (!std::isfinite(held) || std::abs(held) >= largestExact)
        place.refuse("the value is too large.");
    return held;
}

// Nothing where it lacks what is needed to use it.
std::optional<FiledFact> readFact(const QJsonValue& entry, const Place& place) {
    const QJsonObject held = objectOf(entry, place);
    FiledFact fact;
    fact.start = dateField(held, "start", place);
    const auto end = dateField(held, "end", place);
    const auto filed = dateField(held, "filed", place);
    const auto value = valueField(held, place);
    const auto form = textField(held, "form", place);
    const auto accession = textField(held, "accn", place);
    if (!end || !filed || !value || !form || !accession || (fact.start && *fact.start > *end))
        return std::nullopt;
    fact.end = *end;
    fact.filed = *filed;
    fact.value = *value;
    fact.form = *form;
    fact.accession = *accession;
    return fact;
}

void readUnits(const QJsonObject& units, const std::string& name, FilingsDocument& document) {
    for (auto unit = units.begin(); unit != units.end(); ++unit) {
        FiledConcept read{name, text(unit.key()), {}};
        Place place{name + " in " + read.unit, 0};
        if (!unit.value().isArray())
            place.refuse("not as such documents have it.");
        const QJsonArray entries = unit.value().toArray();
        read.facts.reserve(static_cast<std::size_t>(entries.size()));
        for (const auto& entry : entries) {
            ++place.entry;
            if (auto fact = readFact(entry, place))
                read.facts.push_back(std::move(*fact));
            else
                ++document.unusable;
        }
        document.units[read.unit] += static_cast<int>(read.facts.size());
        document.concepts.push_back(std::move(read));
    }
}

void readTaxonomy(const QJsonObject& concepts, const std::string& taxonomy,
                  FilingsDocument& document) {
    document.taxonomies[taxonomy] = static_cast<int>(concepts.size());
    for (auto one = concepts.begin(); one != concepts.end(); ++one) {
        const std::string name = taxonomy + ":" + text(one.key());
        if (!isUsedConcept(name))
            continue;
        const Place place{name, 0};
        readUnits(objectOf(objectOf(one.value(), place).value(QLatin1String("units")), place), name,
                  document);
    }
}

std::int64_t readCik(const QJsonValue& value) {
    // Some publishers give it as text, with zeros in front.
    bool isNumber = value.isDouble();
    const double number =
        value.isString() ? value.toString().toDouble(&isNumber) : value.toDouble(0);
    if (value.isUndefined() || value.isNull())
        return 0;
    if (!isNumber || number < 0 || number >= 1e10 || number != std::floor(number))
        throw Unreadable("The number of the company is none.");
    return static_cast<std::int64_t>(number);
}

FilingsDocument readDocument(const QJsonObject& root) {
    FilingsDocument document;
    const QJsonValue facts = root.value(QLatin1String("facts"));
    const QJsonValue name = root.value(QLatin1String("entityName"));
    if (!facts.isObject() || !name.isString() || name.toString().size() > 500)
        throw Unreadable("This is no document of a company's filings (\"companyfacts\").");
    document.entityName = text(name.toString());
    document.cik = readCik(root.value(QLatin1String("cik")));
    const QJsonObject taxonomies = facts.toObject();
    for (auto one = taxonomies.begin(); one != taxonomies.end(); ++one)
        readTaxonomy(objectOf(one.value(), {text(one.key()), 0}), text(one.key()), document);
    return document;
}

FilingsReading refused(std::string error) {
    return {std::nullopt, std::move(error)};
}

} // namespace

FilingsReading readFilings(std::string_view json) {
    if (json.size() > filingsSizeLimit)
        return refused("The document is too large to be one of filings.");
    if (json.starts_with("\xef\xbb\xbf"))
        json.remove_prefix(3);
    if (json.find_first_not_of(" \t\r\n") == std::string_view::npos)
        return refused("The document is empty.");
    if (auto fault = jsonOutOfBounds(json))
        return refused(std::move(*fault));
    QJsonParseError error;
    const auto parsed = QJsonDocument::fromJson(
        QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size())), &error);
    if (error.error != QJsonParseError::NoError)
        return refused("The document is no JSON (byte " + std::to_string(error.offset) + ": " +
                       text(error.errorString()) + ").");
    try {
        return {readDocument(parsed.object()), {}};
    } catch (const Unreadable& reason) {
        return refused(reason.what());
    }
}

FilingsReading readFilingsFile(const std::filesystem::path& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refused("The file cannot be read: " + text(file.errorString()));
    if (file.size() > static_cast<qint64>(filingsSizeLimit))
        return refused("The file is too large to be a document of filings.");
    // A pipe has no size beforehand.
    const QByteArray json = file.read(static_cast<qint64>(filingsSizeLimit) + 1);
    if (file.error() != QFileDevice::NoError)
        return refused("The file cannot be read: " + text(file.errorString()));
    return readFilings({json.constData(), static_cast<std::size_t>(json.size())});
}

} // namespace vkr
