#include "model/widget_store.h"

#include <new>
#include <utility>

#include "model/widget_spec_json.h"

namespace orvel::WidgetStore {
namespace {

std::filesystem::path homeDirectory(const Accounts& accounts) {
    const auto account = accounts.current();
    if (account && account->homeDirectory && !account->homeDirectory->empty()) return *account->homeDirectory;
    return accounts.processHomeDirectory();
}

}  // namespace

std::filesystem::path dir(const Platform& platform) {
    // The slash at the end says that it is a folder.
    std::filesystem::path folder = homeDirectory(platform.accounts) / "Library/Application Support/Orvel/";
    (void)platform.files.createFolders(folder);
    return folder;
}

std::filesystem::path listFile(const Platform& platform) {
    return dir(platform) / "widgets.json";
}

std::vector<WidgetSpec> load(const Platform& platform) try {
    auto bytes = platform.files.read(listFile(platform));
    if (!bytes) return {};
    auto specs = WidgetSpecJSON::decodeList(*std::move(bytes));
    if (!specs) return {};
    return *std::move(specs);
} catch (const std::bad_alloc&) {
    return {};
}

}  // namespace orvel::WidgetStore
