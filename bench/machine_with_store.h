// A machine whose store holds a given text: what loading costs without the disk. Every reading hands out a copy.
#pragma once

#include <string>

#include "tests/support/fakes.h"

namespace orvel::bench {

/// A copy with the slack behind it that files are read with.
inline std::string copied(const std::string& text) {
    constexpr std::size_t slack = 128;
    std::string copy;
    copy.reserve(text.size() + slack);
    copy += text;
    return copy;
}

/// The text must outlive the machine.
class MachineWithStore {
public:
    explicit MachineWithStore(const std::string& text) : files_(text) {}

    const Platform& platform() const { return platform_; }

private:
    class OneText final : public test::MemoryFiles {
    public:
        explicit OneText(const std::string& text) : text_(text) {}
        Result<std::string, FileFailure> read(const std::filesystem::path&) override { return copied(text_); }
        Result<Done, FileFailure> createFolders(const std::filesystem::path&) override { return Done{}; }

    private:
        const std::string& text_;
    };

    OneText files_;
    FixedClock clock_{Date{0}};
    test::FakeAccounts accounts_;
    test::FixedZone zone_{std::chrono::seconds(0)};
    test::CountingIdentities identities_;
    Platform platform_{clock_, files_, accounts_, zone_, identities_};
};

}  // namespace orvel::bench
