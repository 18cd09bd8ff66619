// The person's text editor.
#pragma once

#include <filesystem>
#include <string>

#include "platform/foundation/outcome.h"

namespace orvel::tools {

/// As a shell would run it: $VISUAL, else $EDITOR, else "vi".
std::string editorCommand();

/// Opens the file in the editor, at that line if the editor is known to take "+LINE", and waits until the editor ends.
/// It is a failure when the editor ends with a status other than 0.
Outcome<Done> openInEditor(const std::string& command, const std::filesystem::path& file, std::size_t line);

}  // namespace orvel::tools
