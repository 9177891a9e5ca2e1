// SPDX-License-Identifier: MIT
#pragma once

#include "record/figure_place.hpp"

#include <map>
#include <utility>

namespace vkr {

// Notes on the figures of the held record, at most one a figure.
template <typename Note>
class FigureNotes {
  public:
    using Places = std::map<FigurePlace, Note>;

    void set(Places notes) { notes_ = std::move(notes); }
    [[nodiscard]] const Places& notes() const { return notes_; }
    [[nodiscard]] const Note& of(const FigurePlace& place) const {
        static const Note none{};
        if (notes_.empty())
            return none;
        const auto found = notes_.find(place);
        return found == notes_.end() ? none : found->second;
    }

  private:
    Places notes_;
};

} // namespace vkr
