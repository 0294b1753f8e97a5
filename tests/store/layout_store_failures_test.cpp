// When a file of the store cannot be written the store says which file and why,
// and save.txt is never harmed.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "store/layout_fixture.h"

namespace vorn::store {
namespace {

using testing::dealtLayout;
using testing::readBytes;
using testing::TempFolder;
using testing::writeBytes;

const std::string kOldStore = dealtLayout() + ", Anna, \r\n";

bool mentions(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

// A folder holding an earlier store, with a directory planted under one name.
struct Blocked {
    explicit Blocked(const char* name) {
        writeBytes(folder / "save.txt", kOldStore);
        std::filesystem::create_directory(folder / name);
    }
    TempFolder folder;
    LayoutStore store{folder.path()};
};

TEST(LayoutStoreFailure, DirectoryInPlaceOfSave1) {
    Blocked b("save1.txt");
    EXPECT_FALSE(b.store.openAtStartup());
    EXPECT_TRUE(mentions(b.store.errorText(), "save1.txt")) << b.store.errorText();
    EXPECT_TRUE(mentions(b.store.errorText(), "Is a directory")) << b.store.errorText();
    EXPECT_EQ(readBytes(b.folder / "load.txt"), "");  // the other files still open
    EXPECT_FALSE(b.store.rewriteCurrentDeal(dealtLayout()));
    EXPECT_TRUE(mentions(b.store.errorText(), "save1.txt"));
    EXPECT_TRUE(b.store.appendRecord(dealtLayout(), "Bob"));  // saving still works
    EXPECT_EQ(readBytes(b.folder / "save.txt"), kOldStore + dealtLayout() + ", Bob, \r\n");
    b.store.shutdown();  // a directory is not the game's to delete
    EXPECT_TRUE(std::filesystem::is_directory(b.folder / "save1.txt"));
    EXPECT_TRUE(mentions(b.store.errorText(), "save1.txt")) << b.store.errorText();
}

TEST(LayoutStoreFailure, DirectoryInPlaceOfLoad) {
    Blocked b("load.txt");
    EXPECT_FALSE(b.store.openAtStartup());
    EXPECT_TRUE(mentions(b.store.errorText(), "load.txt")) << b.store.errorText();
    EXPECT_FALSE(mentions(b.store.errorText(), "save1.txt"));
    EXPECT_EQ(readBytes(b.folder / "save1.txt"), "");
    EXPECT_FALSE(b.store.writeHandOver(dealtLayout()));
    EXPECT_TRUE(mentions(b.store.errorText(), "Is a directory"));
    EXPECT_EQ(b.store.readHandOver(), "");
    EXPECT_EQ(readBytes(b.folder / "save.txt"), kOldStore);
}

TEST(LayoutStoreFailure, DirectoryInPlaceOfSave) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "save.txt");
    LayoutStore store(folder.path());
    EXPECT_FALSE(store.openAtStartup());
    EXPECT_TRUE(mentions(store.errorText(), "save.txt: opening for appending failed: Is a directory"))
        << store.errorText();
    EXPECT_FALSE(store.appendRecord(dealtLayout(), "Anna"));
    EXPECT_TRUE(mentions(store.errorText(), "save.txt")) << store.errorText();
    EXPECT_TRUE(store.readRecords().empty());
    EXPECT_TRUE(store.rewriteCurrentDeal(dealtLayout()));  // New game still works
}

TEST(LayoutStoreFailure, MissingFolderReportsEveryFile) {
    TempFolder folder;
    LayoutStore store(folder / "gone");
    EXPECT_FALSE(store.openAtStartup());
    for (const char* name : {"save1.txt", "save.txt", "load.txt"})
        EXPECT_TRUE(mentions(store.errorText(), name)) << store.errorText();
    EXPECT_TRUE(mentions(store.errorText(), "No such file or directory"));
    EXPECT_FALSE(store.appendRecord(dealtLayout(), "Anna"));
    EXPECT_FALSE(store.writeHandOver(""));
    EXPECT_TRUE(store.readRecords().empty());
    store.shutdown();
    EXPECT_EQ(store.errorText(), "");  // nothing there to delete
}

TEST(LayoutStoreFailure, PipeInPlaceOfAFileDoesNotHang) {
    TempFolder folder;
    ASSERT_EQ(::mkfifo((folder / "save.txt").c_str(), 0644), 0);
    ASSERT_EQ(::mkfifo((folder / "load.txt").c_str(), 0644), 0);
    LayoutStore store(folder.path());
    EXPECT_FALSE(store.appendRecord(dealtLayout(), "Anna"));
    EXPECT_FALSE(store.writeHandOver(dealtLayout()));
    EXPECT_TRUE(store.readRecords().empty());
    EXPECT_EQ(store.readHandOver(), "");
}

TEST(LayoutStoreFailure, ASuccessClearsTheError) {
    Blocked b("load.txt");
    ASSERT_FALSE(b.store.writeHandOver(""));
    std::filesystem::remove(b.folder / "load.txt");
    EXPECT_TRUE(b.store.writeHandOver(""));
    EXPECT_EQ(b.store.errorText(), "");
}

TEST(LayoutStoreFailure, ReadOnlyFolder) {
    TempFolder folder;
    writeBytes(folder / "save.txt", kOldStore);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_read |
                                                    std::filesystem::perms::owner_exec);
    if (!testing::modeBitsProtect(folder.path())) GTEST_SKIP() << "running as root: mode bits do not stop writes";
    LayoutStore store(folder.path());
    EXPECT_FALSE(store.openAtStartup());
    EXPECT_TRUE(mentions(store.errorText(), "Permission denied")) << store.errorText();
    EXPECT_FALSE(store.rewriteCurrentDeal(dealtLayout()));
    EXPECT_EQ(readBytes(folder / "save.txt"), kOldStore);
}

TEST(LayoutStoreFailure, ReadOnlyStoreFileIsLeftAlone) {
    TempFolder folder;
    writeBytes(folder / "save.txt", kOldStore);
    std::filesystem::permissions(folder / "save.txt", std::filesystem::perms::owner_read);
    LayoutStore store(folder.path());
    const bool saved = store.appendRecord(dealtLayout(), "Anna");
    if (saved) GTEST_SKIP() << "running as root: mode bits do not stop writes";
    EXPECT_TRUE(mentions(store.errorText(), "save.txt")) << store.errorText();
    EXPECT_EQ(readBytes(folder / "save.txt"), kOldStore);
}

}  // namespace
}  // namespace vorn::store
