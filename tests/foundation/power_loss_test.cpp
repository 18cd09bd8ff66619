// Every moment at which the power may go during a save, and everything that a disk may then have lost.
#include <filesystem>
#include <map>
#include <optional>

#include "model/widget_store.h"
#include "model/widget_spec_json.h"
#include "tests/foundation/files_fixture.h"
#include "tests/foundation/wrapped_calls.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

using test::Call;

/// What is on a disk for certain, and what the system has only promised.
class Disk {
public:
    explicit Disk(std::map<std::string, std::string> files) {
        for (auto& [name, content] : files) {
            names_[name] = contents_.size();
            contents_.push_back({content, content});
        }
    }

    void apply(const Call& call) {
        switch (call.kind) {
            case Call::Kind::create:
                opened_[call.file] = contents_.size();
                promised_.push_back({{}, call.name, contents_.size()});
                contents_.push_back({});
                break;
            case Call::Kind::openFolder: opened_.erase(call.file); break;
            case Call::Kind::write: contents_[opened_.at(call.file)].written += call.bytes; break;
            case Call::Kind::sync:
                if (const auto file = opened_.find(call.file); file != opened_.end()) {
                    contents_[file->second].certain = contents_[file->second].written;
                } else {
                    names_ = namesAfter(~0u);
                    promised_.clear();
                }
                break;
            case Call::Kind::rename:
                promised_.push_back({call.name, call.newName, namesAfter(~0u).at(call.name)});
                break;
        }
    }

    /// Told all that may be found under that name after a loss of power: nothing, or a content.
    template <class Visitor>
    void afterLoss(const std::string& name, Visitor visit) const {
        for (unsigned kept = 0; kept < 1u << promised_.size(); ++kept) {  // of the changes of names, any may be lost
            const auto names = namesAfter(kept);
            const auto found = names.find(name);
            if (found == names.end()) {
                visit(std::nullopt);
                continue;
            }
            const auto& [certain, written] = contents_[found->second];
            for (std::size_t length = certain.size(); length <= written.size(); ++length) {
                visit(written.substr(0, length));
                visit(certain + std::string(length - certain.size(), '\0'));
            }
        }
    }

private:
    struct Content {
        std::string certain, written;
    };
    struct Naming {
        std::string oldName, newName;
        std::size_t content;
    };

    std::map<std::string, std::size_t> namesAfter(unsigned kept) const {
        auto names = names_;
        for (std::size_t i = 0; i < promised_.size(); ++i) {
            if (!(kept >> i & 1)) continue;
            names.erase(promised_[i].oldName);
            names[promised_[i].newName] = promised_[i].content;
        }
        return names;
    }

    std::map<std::string, std::size_t> names_;
    std::vector<Content> contents_;
    std::vector<Naming> promised_;
    std::map<int, std::size_t> opened_;
};

class PowerLoss : public InFolder {
protected:
    /// Saves, and loses power at every moment of it. The store's file is `file`, which need not be where it is looked
    /// for.
    void saveAndLose(const std::optional<std::string>& before, const fs::path& file) {
        const WidgetSpec spec({.title = "one of some", .kind = WidgetSpec::Kind::note}, platform);
        const std::vector<WidgetSpec> saved{spec, spec};
        std::vector<Call> calls;
        test::record = &calls;
        test::longestWrite = 100;
        WidgetStore::save(saved, platform);
        test::record = nullptr;
        test::longestWrite = SIZE_MAX;
        ASSERT_EQ(WidgetStore::load(platform), saved);
        ASSERT_GT(calls.size(), 4u) << "the save went another way";

        Disk disk(before ? std::map<std::string, std::string>{{file, *before}} : std::map<std::string, std::string>{});
        for (std::size_t done = 0; done <= calls.size(); ++done) {
            if (done > 0) disk.apply(calls[done - 1]);
            disk.afterLoss(file, [&](const std::optional<std::string>& content) {
                const bool isOld = content == before && done < calls.size();
                const auto loaded = content ? WidgetSpecJSON::decodeList(*content) : WidgetSpecJSON::decodeList("[]");
                ASSERT_TRUE(isOld || (loaded && *loaded == saved)) << "after call " << done << " of " << calls.size();
            });
        }
    }

    test::FakeMachine machine;
    Platform platform{machine.clock, files, machine.accounts, machine.zone, machine.identities};
    fs::path stored;

    void SetUp() override {
        InFolder::SetUp();
        machine.accounts.account = Account{folder.string()};
        fs::create_directories(folder / "Library/Application Support/Orvel");
        stored = folder / "Library/Application Support/Orvel/widgets.json";
    }
};

TEST_F(PowerLoss, LeavesNoneOrTheNewList) {
    saveAndLose(std::nullopt, stored);
}

TEST_F(PowerLoss, LeavesTheOldListOrTheNewOne) {
    std::ofstream(stored) << "[]";
    saveAndLose("[]", stored);
}

TEST_F(PowerLoss, LeavesTheOldListOrTheNewOneWhereALinkLeads) {
    std::ofstream(folder / "elsewhere.json") << "[]";
    fs::create_symlink(folder / "elsewhere.json", stored);
    saveAndLose("[]", folder / "elsewhere.json");
}

}  // namespace
}  // namespace orvel
