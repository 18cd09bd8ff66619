// Symbols made of others.
#pragma once

#include "platform/ui/symbol_set.h"

namespace orvel {

/// The symbol, smaller, in the middle of a shape: within it when the shape is a line, cut out of it when it is an area.
SymbolOutline enclosed(const SymbolOutline& symbol, const SymbolOutline& shape);

}  // namespace orvel
