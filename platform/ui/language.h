// The language that this process reads and draws in, when it isn't to be the environment's.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

/// Whether it names a language as the environment does: "ja", "zh_TW", "pt-BR", "de_DE.UTF-8".
bool isLanguage(std::string_view text);

/// Translations, and the faces that stand in where the system font has no glyph, are that language's from now on. To be
/// called while the process has one thread, and before a renderer is loaded: the libraries read the environment once.
void useLanguage(const std::string& language);

}  // namespace orvel
