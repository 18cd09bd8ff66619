// A list that a person may also write by hand, kept as JSON in a file of its own: replaced whole, and changed under the
// lock of its folder.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "authoring/keep_beside.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"
#include "platform/foundation/text_position.h"
#include "platform/language/sentence.h"

namespace orvel {

/// What is wrong with a text.
struct TextFault {
    std::string reason;  ///< one line without a full stop
    std::size_t offset;  ///< where, in bytes
};

template <class Item>
struct ListFile {
    std::filesystem::path path;
    Result<std::vector<Item>, TextFault> (*decode)(std::string json);
    Outcome<std::string> (*encode)(const std::vector<Item>& items);
    NewFile permissions;

    /// A missing file is an empty list. One that can't be read, or isn't understood, is a failure that says where and
    /// why.
    Outcome<std::vector<Item>> read(const Platform& platform) const {
        const auto bytes = platform.files.read(path);
        if (!bytes && bytes.failure().code == std::errc::no_such_file_or_directory) return std::vector<Item>();
        if (!bytes) return failed(path, bytes.failure());
        auto items = decode(*bytes);
        if (items) return *std::move(items);
        const auto& [reason, offset] = items.failure();
        return Failure{path.string() + ":" + textPosition(*bytes, offset).text() + ": " + reason,
                       Failure::Cause::content};
    }

    /// Changes the list in one step. A file that isn't understood is kept beside, and the change starts from an empty
    /// list; the result then says so in one line. A failed `change` changes nothing, and one that changes nothing
    /// writes nothing.
    Outcome<std::optional<std::string>> change(const std::function<Outcome<Done>(std::vector<Item>&)>& change,
                                               const Platform& platform) const {
        const auto folder = path.parent_path();
        if (const auto made = platform.files.createFolders(folder); !made) return failed(folder, made.failure());
        const auto lock = platform.files.lock(folder);
        if (!lock) return failed(folder, lock.failure());

        const auto former = read(platform);
        if (!former && former.failure().cause != Failure::Cause::content) return former.failure();
        std::vector<Item> items = former ? *former : std::vector<Item>();
        if (const auto changed = change(items); !changed) return changed.failure();
        if (former && items == *former) return std::optional<std::string>();

        const auto json = encode(items);
        if (!json) return json.failure();
        std::optional<std::string> notice;
        if (!former) {
            const auto kept = keepBeside(path, Kept::invalid, platform);
            if (!kept) return kept.failure();
            notice = clauses(former.failure().reason, sentence("kept as {0}", *kept));
        }
        const auto written = platform.files.replace(path, *json, permissions);
        if (!written) return failed(path, written.failure());
        if (written->unsynced) return doneForNow(failed(path, *written->unsynced).reason);
        return notice;
    }

private:
    static Failure failed(const std::filesystem::path& file, const FileFailure& failure) {
        return {file.string() + ": " + failure.message()};
    }
};

}  // namespace orvel
