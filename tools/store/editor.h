// The person's text editor.
#pragma once

#include <filesystem>
#include <string>

#include "platform/foundation/outcome.h"

namespace orvel::tools {

/// As a shell would run it: $VISUAL, else $EDITOR, else "vi".
std::string editorCommand();

/// Opens the file in the editor and waits until it ends; at that line, where the editor is known to take "+LINE". An
/// editor that ends with another status than 0 is a failure.
Outcome<Done> openInEditor(const std::string& command, const std::filesystem::path& file, std::size_t line);

}  // namespace orvel::tools
