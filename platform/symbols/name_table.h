// A text table, read in place: lines of "name value" or of names alone, in the order of their bytes, after comments
// that begin with "#".
#pragma once

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace orvel {

class NameTable {
public:
    /// The text ends with a line break and outlives the table.
    explicit NameTable(std::string_view text);

    /// Empty for a name without a value, absent for one that isn't there.
    std::optional<std::string_view> find(std::string_view name) const;

    using Entry = std::pair<std::string_view, std::string_view>;
    std::vector<Entry> entries() const;

private:
    std::string_view lines_;  ///< without the comments
};

}  // namespace orvel
