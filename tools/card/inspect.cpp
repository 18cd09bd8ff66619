#include "tools/card/inspect.h"

#include "platform/language/sentence.h"
#include "platform/ui/inspection.h"
#include "tools/card/drawing.h"
#include "tools/core/input_output.h"

namespace orvel::tools {

Outcome<Done> inspect(const CardChoices& card, const Platform& platform, Console& console) {
    const auto shown = shownEntry(card.design, platform, console);
    if (!shown) return shown.failure();
    const auto drawing = Drawing::open();
    if (!drawing) return drawing.failure();
    const View view = shownView(*shown, platform);
    const auto printed = printJson(inspection(name(card.family), view, drawing->scene(view, card.family)),
                                   toTranslate("the card"), console);
    if (!printed) return printed.failure();
    return unlessComplaint(shown->complaint);
}

}  // namespace orvel::tools
