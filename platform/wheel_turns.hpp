// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// Adds up the turns of a wheel. Fine ones send fractions of a step.
class WheelTurns {
  public:
    static constexpr int wholeStep = 120; // what systems count a step as

    // A turn by so many parts of a step, away from the user; how many whole steps that makes with
    // those before, towards the user.
    [[nodiscard]] int add(int parts) {
        if ((rest_ > 0) != (parts > 0))
            rest_ = 0;
        rest_ += parts;
        return -(rest_ / wholeStep);
    }
    // Whether the steps were used. An unused turn comes again, from what is around the control.
    void settle(bool used) { rest_ = used ? rest_ % wholeStep : 0; }

  private:
    int rest_ = 0;
};

} // namespace vkr
