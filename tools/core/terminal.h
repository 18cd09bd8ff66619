// Columns of a terminal.
#pragma once

#include <string>
#include <vector>

#include "tools/core/console.h"

namespace orvel::tools {

/// Rows of equally many cells, each column as wide as its widest cell and two blanks. On a terminal, the widest columns
/// give way until the rows fit.
void printColumns(const std::vector<std::vector<std::string>>& rows, Console& console);

/// Filled with blanks up to that many columns.
std::string padded(std::string text, std::size_t columns);

}  // namespace orvel::tools
