// SPDX-License-Identifier: MIT
#pragma once

#include "record/figure_place.hpp"

#include <map>
#include <string>
#include <utility>

namespace vkr {

// What whoever looks over the figures of the record that is held has to say of them.
class FigureRemarks {
  public:
    using Texts = std::map<FigurePlace, std::string>;

    void set(Texts texts) { texts_ = std::move(texts); }
    [[nodiscard]] const Texts& texts() const { return texts_; }
    [[nodiscard]] const std::string& of(const FigurePlace& place) const {
        static const std::string none;
        if (texts_.empty())
            return none;
        const auto found = texts_.find(place);
        return found == texts_.end() ? none : found->second;
    }

  private:
    Texts texts_;
};

} // namespace vkr
