// SPDX-License-Identifier: MIT
#include "filings/json_bounds.hpp"

#include <algorithm>
#include <vector>

namespace vkr {

namespace {

class Scan {
  public:
    Scan(std::string_view json, const JsonBounds& bounds) : json_(json), bounds_(bounds) {}

    std::optional<std::string> run() {
        while (!fault_ && at_ < json_.size())
            step(json_[at_]);
        if (!fault_ && !open_.empty())
            fault_ = "The document is cut off: it ends in the middle.";
        return fault_;
    }

  private:
    struct Open {
        bool object = false;
        bool awaitsName = false;
        std::size_t firstName = 0; // in names_
    };

    void step(char next) {
        switch (next) {
        case '{':
        case '[':
            open(next == '{');
            break;
        case '}':
        case ']':
            close();
            break;
        case '"':
            text();
            return;
        case ',':
            if (++values_ > bounds_.values)
                fault_ = "The document holds too many values to be read.";
            if (!open_.empty())
                open_.back().awaitsName = open_.back().object;
            break;
        case '\0':
            fault_ = "The document holds bytes that are no text.";
            break;
        default:
            break;
        }
        ++at_;
    }

    void open(bool object) {
        if (++containers_ > bounds_.containers)
            fault_ = "The document holds too many facts to be read.";
        else if (open_.size() >= bounds_.depth)
            fault_ = "The document is nested too deeply to be one of filings.";
        else
            open_.push_back({object, object, names_.size()});
    }

    void close() {
        if (open_.empty()) {
            fault_ = "The document is no JSON.";
            return;
        }
        const auto first = names_.begin() + static_cast<std::ptrdiff_t>(open_.back().firstName);
        std::sort(first, names_.end());
        if (const auto twice = std::adjacent_find(first, names_.end()); twice != names_.end())
            fault_ = "The document has the name \"" + std::string(twice->substr(0, 80)) +
                     "\" twice in one place.";
        names_.erase(first, names_.end());
        open_.pop_back();
    }

    void text() {
        const std::size_t begin = ++at_;
        bool escaped = false;
        while (at_ < json_.size() && json_[at_] != '"' && json_[at_] != '\0') {
            const bool escape = json_[at_] == '\\';
            escaped = escaped || (escape && json_.substr(at_, 2) != "\\/");
            at_ += escape ? 2 : 1;
        }
        if (at_ >= json_.size()) {
            fault_ = "The document is cut off: it ends in the middle.";
            return;
        }
        if (json_[at_] == '\0')
            return; // told by step()
        if (!open_.empty() && open_.back().awaitsName) {
            open_.back().awaitsName = false;
            // Names that are written in two ways could not be told to be the same one.
            if (escaped)
                fault_ = "The document has a name that is written in an odd way.";
            else if (names_.size() >= bounds_.names)
                fault_ = "The document has an object with too many names to be one of filings.";
            names_.push_back(json_.substr(begin, at_ - begin));
        }
        ++at_;
    }

    std::string_view json_;
    const JsonBounds& bounds_;
    std::size_t at_ = 0;
    std::size_t containers_ = 0;
    std::size_t values_ = 0;
    std::vector<Open> open_;
    std::vector<std::string_view> names_; // of the open objects, the innermost one's last
    std::optional<std::string> fault_;
};

} // namespace

std::optional<std::string> jsonOutOfBounds(std::string_view json, const JsonBounds& bounds) {
    return Scan(json, bounds).run();
}

} // namespace vkr
