// Sets the language in which this process draws, in place of the environment's.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

/// Whether it names a language as the environment does: "ja", "zh_TW", "pt-BR", "de_DE.UTF-8".
bool isLanguage(std::string_view text);

/// From now on, translations are in that language, and so is the choice of fallback faces. Call it while the process
/// has one thread, and before a renderer is loaded: the libraries read the environment once.
void useLanguage(const std::string& language);

}  // namespace orvel
