// Any bytes as a store's list: what is read can be written, and reads back as the same.
#include <string>

#include "fuzz/expect.h"
#include "model/widget_spec_json.h"

using namespace orvel;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto specs = WidgetSpecJSON::decodeList(text);
    const auto inList = WidgetSpecJSON::decodeList("[" + text + "]");
    const auto alone = WidgetSpecJSON::decode(text);
    if (inList && inList->size() == 1) fuzz::expect(alone && *alone == inList->front(), "one of a list reads alone");
    const bool shallow = size < 500;  // a list around the deepest text that is read is too deep
    if (alone && shallow && !text.starts_with("\xEF\xBB\xBF"))
        fuzz::expect(inList && inList->size() == 1, "what reads alone reads in a list");

    if (!specs) {
        fuzz::expect(specs.failure().position.offset <= size, "a failure lies within the text");
        fuzz::expect(!specs.failure().message().empty(), "a failure has a reason");
        return 0;
    }
    const auto written = WidgetSpecJSON::encodeList(*specs);
    fuzz::expect(written.has_value(), "what was read can be written");
    const auto again = WidgetSpecJSON::decodeList(*written);
    fuzz::expect(again && *again == *specs, "what was written reads back as the same designs");
    fuzz::expect(WidgetSpecJSON::encodeList(*again) == written, "and is written as the same bytes");
    return 0;
}
