// The real files in a folder of their own, which goes with the test.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include "platform/foundation/posix_files.h"

namespace orvel {

namespace fs = std::filesystem;

class InFolder : public testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "orvel-files-XXXXXX").string();
        ASSERT_TRUE(::mkdtemp(name.data()));
        folder = name;
    }
    void TearDown() override { fs::remove_all(folder); }

    static std::string content(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::set<std::string> names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
        return names;
    }

    fs::path folder;
    PosixFiles files;
};

}  // namespace orvel
