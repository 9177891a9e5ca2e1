// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vkr {

class Object;
class Variant;

// An array that carries its own lower and upper bound. An array of numbers keeps plain doubles;
// one of strings keeps strings; any other mixture keeps variants. Reading or writing outside the
// bounds throws std::out_of_range; bounds that are no int throw std::length_error on making one.
class VariantArray {
  public:
    using Items = std::variant<std::vector<double>, std::vector<std::string>, std::vector<Variant>>;

    VariantArray() = default;
    VariantArray(int lower, std::vector<double> items);
    VariantArray(int lower, std::vector<std::string> items);
    VariantArray(int lower, std::vector<Variant> items);
    // Whole, or nothing where memory runs out.
    VariantArray(const VariantArray& other);
    VariantArray& operator=(const VariantArray& other);
    VariantArray(VariantArray&&) noexcept = default;
    VariantArray& operator=(VariantArray&&) noexcept = default;
    ~VariantArray() = default;

    [[nodiscard]] int lower() const { return lower_; }
    // lower() - 1 for an array without elements.
    [[nodiscard]] int upper() const {
        return static_cast<int>(lower_ + static_cast<std::int64_t>(size()) - 1);
    }
    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] bool contains(int index) const { return index >= lower() && index <= upper(); }

    [[nodiscard]] Variant at(int index) const;
    // The element as a number: text by its leading numeric part, what is no number as 0.
    [[nodiscard]] double number(int index) const;
    // The element as text.
    [[nodiscard]] std::string text(int index) const;
    // Stores a number; an array of strings takes it as text.
    void setNumber(int index, double value);
    void set(int index, const Variant& value);

    // The doubles of an array of numbers, nothing for any other.
    [[nodiscard]] const std::vector<double>* numbers() const {
        return std::get_if<std::vector<double>>(&items_);
    }
    [[nodiscard]] std::vector<double>* numbers() {
        return std::get_if<std::vector<double>>(&items_);
    }
    [[nodiscard]] const Items& items() const { return items_; }

    friend bool operator==(const VariantArray&, const VariantArray&);

  private:
    VariantArray(int lower, Items items);
    [[nodiscard]] std::size_t offset(int index) const;

    int lower_ = 0;
    Items items_;
};

// One value of any of the kinds that travel between host and component.
class Variant {
  public:
    // The type numbers; an array has `array` added to its element type.
    enum Type : int {
        vtEmpty = 0,
        vtInteger = 2,
        vtLong = 3,
        vtSingle = 4,
        vtDouble = 5,
        vtDate = 7,
        vtString = 8,
        vtObject = 9,
        vtBoolean = 11,
        vtVariant = 12,
        vtArray = 8192,
    };

    using ObjectPtr = std::shared_ptr<Object>;
    using Value = std::variant<std::monostate, std::int16_t, std::int32_t, float, double, Date,
                               std::string, ObjectPtr, bool, VariantArray>;

    Variant() = default;
    Variant(std::int16_t value) : value_(value) {}
    Variant(std::int32_t value) : value_(value) {}
    Variant(float value) : value_(value) {}
    Variant(double value) : value_(value) {}
    Variant(Date value) : value_(value) {}
    Variant(std::string value) : value_(std::move(value)) {}
    Variant(std::string_view value) : value_(std::string(value)) {}
    Variant(const char* value) : value_(std::string(value)) {}
    Variant(ObjectPtr value) : value_(std::move(value)) {}
    Variant(bool value) : value_(value) {}
    Variant(VariantArray value) : value_(std::move(value)) {}
    template <typename Pointee>
    Variant(Pointee*) = delete; // would silently become a boolean

    [[nodiscard]] int varType() const;
    [[nodiscard]] bool isEmpty() const { return std::holds_alternative<std::monostate>(value_); }
    [[nodiscard]] bool isArray() const { return std::holds_alternative<VariantArray>(value_); }
    [[nodiscard]] bool isObject() const { return std::holds_alternative<ObjectPtr>(value_); }
    // A number, a boolean, or a text that is a number as a whole.
    [[nodiscard]] bool isNumeric() const;

    // Conversions. Where the kind of value allows none they throw std::invalid_argument.
    [[nodiscard]] double toDouble() const;     // text by its leading numeric part; empty is 0
    [[nodiscard]] std::int32_t toLong() const; // rounded half to even; overflow throws
    [[nodiscard]] bool toBoolean() const;      // not zero; "True"/"False"
    [[nodiscard]] std::string toText() const;  // numbers in their shortest plain form
    [[nodiscard]] Date toDate() const;         // dates and numbers
    [[nodiscard]] ObjectPtr toObject() const;  // null where it is none

    // Throws std::invalid_argument for what is no array.
    [[nodiscard]] const VariantArray& array() const;
    [[nodiscard]] VariantArray& array();

    [[nodiscard]] const Value& value() const { return value_; }
    friend bool operator==(const Variant&, const Variant&) = default;

  private:
    Value value_;
};

// Convenience for hosts: an array of texts, such as the list of exchanges.
[[nodiscard]] Variant textArray(std::vector<std::string> texts, int lower = 0);
[[nodiscard]] Variant numberArray(std::vector<double> numbers, int lower = 0);

} // namespace vkr
