#include "platform/symbols/symbol_data.h"

// In symbol_data.S.
extern "C" const char orvelFirstFont[], orvelFirstFontEnd[];
extern "C" const char orvelSecondFont[], orvelSecondFontEnd[];
extern "C" const char orvelSecondFontFilled[], orvelSecondFontFilledEnd[];
extern "C" const char orvelSecondCodes[], orvelSecondCodesEnd[];
extern "C" const char orvelRespelled[], orvelRespelledEnd[];
extern "C" const char orvelSecondSet[], orvelSecondSetEnd[];
extern "C" const char orvelDrawn[], orvelDrawnEnd[];
extern "C" const char orvelComposed[], orvelComposedEnd[];
extern "C" const char orvelSynonyms[], orvelSynonymsEnd[];
extern "C" const char orvelEnclosable[], orvelEnclosableEnd[];

namespace orvel::symbol_data {

std::string_view firstFont() {
    return {orvelFirstFont, orvelFirstFontEnd};
}

std::string_view secondFont() {
    return {orvelSecondFont, orvelSecondFontEnd};
}

std::string_view secondFontFilled() {
    return {orvelSecondFontFilled, orvelSecondFontFilledEnd};
}

NameTable secondCodes() {
    return NameTable({orvelSecondCodes, orvelSecondCodesEnd});
}

NameTable respelled() {
    return NameTable({orvelRespelled, orvelRespelledEnd});
}

NameTable secondSet() {
    return NameTable({orvelSecondSet, orvelSecondSetEnd});
}

NameTable drawn() {
    return NameTable({orvelDrawn, orvelDrawnEnd});
}

NameTable composed() {
    return NameTable({orvelComposed, orvelComposedEnd});
}

NameTable synonyms() {
    return NameTable({orvelSynonyms, orvelSynonymsEnd});
}

NameTable enclosable() {
    return NameTable({orvelEnclosable, orvelEnclosableEnd});
}

}  // namespace orvel::symbol_data
