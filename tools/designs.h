// The stored designs for commands that change them: locked while they are open, found by what a person types, and
// never overwritten while they can't be read.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "model/widget_spec.h"
#include "platform/foundation/platform.h"
#include "tools/console.h"

namespace orvel::tools {

struct OpenDesigns {
    std::unique_ptr<FolderLock> lock;  ///< the folder's, for as long as this lives
    std::vector<WidgetSpec> specs;
};

/// The designs for reading. A missing file has none; one that doesn't load is a failure.
Outcome<std::vector<WidgetSpec>> readDesigns(const Platform& platform);

/// The designs for a change. A file that doesn't load is kept beside as "widgets.json.invalid-<time>", which the
/// console is told, and the change starts from none; if it can't be kept, nothing may change and this fails.
Outcome<OpenDesigns> openDesigns(const Platform& platform, Console& console);

Outcome<Done> saveDesigns(const std::vector<WidgetSpec>& specs, const Platform& platform);

/// Where the designs are that a reference means: an id, the unambiguous beginning of one (letters in any case), or a
/// position such as @2. Several only when designs share that whole id; never none.
Outcome<std::vector<std::size_t>> findAll(const std::vector<WidgetSpec>& specs, const std::string& reference);

/// The only design that a reference means.
Outcome<std::size_t> findOne(const std::vector<WidgetSpec>& specs, const std::string& reference);

}  // namespace orvel::tools
