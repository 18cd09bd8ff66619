// The command with designs in its store.
#pragma once

#include <string>
#include <vector>

#include "model/widget_store.h"
#include "tests/tools/command_fixture.h"

namespace orvel::tools {

class StoreCommand : public Command {
protected:
    // Designs with these ids, all of them notes.
    void store(const std::vector<const char*>& ids) {
        std::vector<WidgetSpec> specs;
        for (const char* id : ids)
            specs.push_back(WidgetSpec({.id = id,
                                        .title = "title",
                                        .kind = WidgetSpec::Kind::note,
                                        .symbol = "flag.fill",
                                        .primary = "text",
                                        .createdAt = Date{}}));
        WidgetStore::save(specs, machine.platform);
        machine.files.calls.clear();
    }
    // A whole record with these fields; where it has a field twice, the first one counts.
    static std::string record(const std::string& fields) {
        return "{" + fields + R"(,"id":"A","title":"é","accentHex":"#fff","symbol":"flag.fill","createdAt":0})";
    }
    std::vector<WidgetSpec> stored() { return WidgetStore::load(machine.platform); }
    std::string ids() {
        std::string ids;
        for (const auto& spec : stored()) ids += spec.id + " ";
        return ids;
    }
};

}  // namespace orvel::tools
