// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"
#include "record/datum_table.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// Where a figure comes from.
struct FigureOrigin {
    std::optional<Origin> origin; // nothing: not known, as of what was stored before it was kept
    std::string document;         // that an imported figure was taken from
    bool isOutdated = false;      // one of the figures that it follows from has changed since

    friend bool operator==(const FigureOrigin&, const FigureOrigin&) = default;
};

// Where each datum of a company comes from, each element of its series, and each setting. Follows
// the changes that are made to the record: figures that move to another period take their origin
// with them, and figures that a split adjusts keep it.
//
// What may be true together: each place has one of the kinds. No two of these are alike, and the
// first is "not known", which every place has at first.
class FigureOrigins {
  public:
    FigureOrigins();

    [[nodiscard]] FigureOrigin of(Datum datum, std::optional<int> element = std::nullopt) const;
    // Elements that a series of CompanyRecord does not have are passed over.
    void put(Datum datum, std::optional<int> element, const FigureOrigin& origin);
    // By its name in vkr::setting; others are passed over.
    [[nodiscard]] FigureOrigin ofSetting(std::string_view setting) const;
    void putSetting(std::string_view setting, const FigureOrigin& origin);

    // What a person did. Values that become absent have no origin any more.
    void note(const ChangeGroup& group);

    // Gives each single figure of a group the origin that it has here, such as one that has come
    // back by being taken back.
    void tellIn(ChangeGroup& group) const;

    // Whether a worked-out value may take the place of what is there: of what was worked out
    // itself, and of anything else once what it follows from has changed. A figure that a person
    // may have typed stays beside what an import has changed.
    [[nodiscard]] bool mayDerive(Datum datum, std::optional<int> element) const;

    // Plain text, a line for each origin; reading it gives the same origins. What can't be read is
    // left out.
    [[nodiscard]] std::string text() const;
    [[nodiscard]] static FigureOrigins fromText(std::string_view text);

    friend bool operator==(const FigureOrigins& left, const FigureOrigins& right);

  private:
    using Kind = std::uint16_t; // a place in kinds_
    [[nodiscard]] Kind kindOf(const FigureOrigin& origin);
    void checkInvariants() const;
    void shift(const ChangeGroup& group, const Change& change);
    void outdateWhatFollowsFrom(const ChangeGroup& group, const Change& change);
    [[nodiscard]] bool isSafeFrom(const Change& change, std::size_t place) const;
    void outdate(std::size_t place);
    void putEach(const Change& change);
    void adjust(const Change& change, const std::vector<Kind>& before);

    std::vector<FigureOrigin> kinds_; // the first one is "not known"
    std::vector<Kind> places_;        // of all data, one behind the other, then of the settings
};

// No text, no date, no figure: what is absent comes from nowhere.
[[nodiscard]] bool isAbsentValue(const Variant& value);

// As it is stored.
inline constexpr std::string_view originNames[] = {"typed",   "pasted",  "imported",
                                                   "derived", "shifted", "adjusted"};
[[nodiscard]] std::string_view originName(Origin origin);
[[nodiscard]] std::optional<Origin> originNamed(std::string_view name);

// A datum that is worked out, and one that it follows from. Of two series: element by element.
struct Derivation {
    Datum derived;
    Datum from;
};
[[nodiscard]] std::span<const Derivation> derivations();

} // namespace vkr
