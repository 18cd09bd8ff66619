#include <sys/stat.h>

#include "tests/foundation/files_fixture.h"

namespace orvel {
namespace {

class PosixFilesTest : public InFolder {
protected:
    static mode_t mode(const fs::path& path) {
        struct stat status;
        return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }
};

TEST_F(PosixFilesTest, ReadsWholeRegularFilesOnly) {
    const std::string large(3'000'001, 'x');
    ASSERT_TRUE(files.replace(folder / "large", large));
    EXPECT_EQ(*files.read(folder / "large"), large);
    ASSERT_TRUE(files.replace(folder / "empty", ""));
    EXPECT_EQ(*files.read(folder / "empty"), "");
    EXPECT_NE(files.read("/proc/self/stat")->size(), 0u) << "a file that doesn't tell its size";

    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    for (const fs::path& path : {folder, folder / "fifo", fs::path("/dev/zero"), folder / "missing"})
        EXPECT_FALSE(files.read(path)) << path;
    ASSERT_EQ(::truncate((folder / "empty").c_str(), static_cast<off_t>(Files::largest) + 1), 0);
    EXPECT_EQ(files.read(folder / "empty").failure().code, std::errc::file_too_large);
}

TEST_F(PosixFilesTest, ReplacesInOneStepAndKeepsModesAndLinks) {
    const mode_t mask = ::umask(027);
    EXPECT_TRUE(files.replace(folder / "new", "1"));
    ::umask(mask);
    EXPECT_EQ(mode(folder / "new"), 0640u);

    ASSERT_EQ(::chmod((folder / "new").c_str(), 0604), 0);
    EXPECT_TRUE(files.replace(folder / "new", "1", NewFile::ownerOnly)) << "keeps its mode";
    EXPECT_TRUE(files.replace(folder / "private", "1", NewFile::ownerOnly));
    EXPECT_EQ(mode(folder / "private"), 0600u);
    EXPECT_EQ(*files.names(folder), (std::vector<std::string>{"new", "private"}));
    fs::remove(folder / "private");
    fs::create_symlink("new", folder / "link");
    fs::create_symlink("link", folder / "link to link");
    EXPECT_TRUE(files.replace(folder / "link to link", "2"));
    EXPECT_EQ(content(folder / "new"), "2");
    EXPECT_EQ(mode(folder / "new"), 0604u);
    EXPECT_TRUE(fs::is_symlink(folder / "link to link"));

    fs::create_symlink("not yet", folder / "dangling");
    EXPECT_TRUE(files.replace(folder / "dangling", "3"));
    EXPECT_EQ(content(folder / "not yet"), "3");
    EXPECT_EQ(names(), (std::set<std::string>{"new", "link", "link to link", "dangling", "not yet"})) << "no leftovers";
}

TEST_F(PosixFilesTest, WaitsForALockOnlySoLong) {
    using namespace std::chrono_literals;
    std::vector<std::string> holders;
    const LockWait wait{.most = 60ms, .silent = 20ms, .tell = [&](const auto& holder) { holders.push_back(holder); }};
    auto held = files.lock(folder, wait);
    ASSERT_TRUE(held);
    EXPECT_EQ(files.lock(folder, wait).failure().code, std::errc::timed_out);
    EXPECT_EQ(files.lock(folder, {.most = 0s}).failure().code, std::errc::timed_out);
    held->reset();
    EXPECT_TRUE(files.lock(folder, wait));
    ASSERT_EQ(holders.size(), 1u);
    const std::string here = "process " + std::to_string(::getpid()) + " (test_foundation)";
    EXPECT_TRUE(holders[0] == here || holders[0] == "another process") << holders[0];
}

TEST_F(PosixFilesTest, ChangesNothingWhenItFails) {
    fs::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "fifo").c_str(), 0600), 0);
    fs::create_symlink("loop", folder / "loop");
    const auto before = names();
    for (const fs::path& path : {folder / "folder", folder / "fifo", folder / "loop", folder / "missing" / "file"})
        EXPECT_FALSE(files.replace(path, "x")) << path;
    EXPECT_EQ(names(), before);
    EXPECT_TRUE(fs::is_fifo(folder / "fifo"));
    EXPECT_FALSE(files.remove(folder / "missing"));
    EXPECT_FALSE(files.names(folder / "missing"));
    EXPECT_FALSE(files.createFolders(folder / "fifo" / "below"));
}

}  // namespace
}  // namespace orvel
