// Tells whether what was typed into a form that may be out of date still fits: whether the fields that it is about have
// changed since.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "designer/editing/typed_fields.h"
#include "model/widget_fields.h"

namespace orvel::designer {

class Revisions {
public:
    /// One more with each change.
    std::uint64_t last() const { return last_; }

    /// Another design: nothing typed before fits it.
    void open() {
        opened_ = ++last_;
        changed_.clear();
    }
    void change(const WidgetSpec& from, const WidgetSpec& to) {
        ++last_;
        forEachWidgetField([&](const auto& row) {
            if (row.in(from) != row.in(to)) changed_[row.name] = last_;
        });
    }

    bool isCurrent(const std::vector<TypedField>& fields, std::uint64_t revision) const {
        return revision >= opened_ && revision <= last_ && std::ranges::all_of(fields, [&](const TypedField& typed) {
                   const auto changed = changed_.find(typed.field);
                   return changed == changed_.end() || changed->second <= revision;
               });
    }

private:
    std::uint64_t last_ = 1;
    std::uint64_t opened_ = 1;
    std::map<std::string_view, std::uint64_t> changed_;
};

}  // namespace orvel::designer
