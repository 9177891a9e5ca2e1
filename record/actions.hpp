// SPDX-License-Identifier: MIT
#pragma once

#include "record/ivkr_company.hpp"

#include <memory>
#include <optional>
#include <string>

namespace vkr {

// Where what is written into a record comes from. A later one takes the place of an earlier one
// only where a person wants it: what was typed stands above all others, what is derived below them.
enum class Origin {
    typed,
    pasted,
    imported, // from a document
    derived,  // worked out from other data
    shifted,  // moved to another period
    // Brought to the shares after a split. Figures that are known to be from elsewhere stay of that
    // origin; an imported one becomes of this, and keeps its document.
    adjusted,
};

// Whether a person has put a figure there, or may have: of what is not known to come from a
// document or from arithmetic it has to be assumed.
[[nodiscard]] constexpr bool mayBeByHand(std::optional<Origin> origin) {
    return origin != Origin::imported && origin != Origin::derived && origin != Origin::adjusted;
}

// What a person did, be it one write or hundreds.
struct Action {
    Origin origin = Origin::typed;
    std::string name;     // for people: "Paste of 30 Figures"; empty: by the datum that is written
    std::string document; // that an import was taken from, such as an accession number
};

// A record that wants to know which writes belong together implements this beside iVKR_Company.
// Actions nest: the outermost one is what the person did, an inner one says where its own writes
// come from. Writes outside of any action stand for themselves, and count as typed.
class ActionListener {
  public:
    virtual ~ActionListener() = default;
    virtual void beginAction(const Action& action) = 0;
    virtual void endAction() noexcept = 0; // the one that was begun last
};

// An action that lasts as long as its scope. Nothing happens where the record does not listen, or
// throws at the beginning.
class [[nodiscard]] ActionScope {
  public:
    ActionScope(const std::shared_ptr<iVKR_Company>& company, const Action& action);
    ~ActionScope();
    ActionScope(const ActionScope&) = delete;
    ActionScope& operator=(const ActionScope&) = delete;

  private:
    std::shared_ptr<ActionListener> listener_;
};

} // namespace vkr
