#include "store/layout_store.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "store/layout_fixture.h"
#include "store/record.h"

namespace vorn::store {
namespace {

using testing::dealtLayout;
using testing::listing;
using testing::readBytes;
using testing::StoreTest;
using testing::TempFolder;
using testing::writeBytes;

TEST(LayoutStoreStartup, FreshFolderGetsThreeEmptyFiles) {
    TempFolder folder;
    LayoutStore store(folder.path());
    ASSERT_TRUE(store.openAtStartup()) << store.errorText();
    EXPECT_EQ(store.errorText(), "");
    EXPECT_EQ(listing(folder.path()), "load.txt save.txt save1.txt");
    for (const char* name : {"load.txt", "save.txt", "save1.txt"}) EXPECT_EQ(readBytes(folder / name), "") << name;
}

TEST(LayoutStoreStartup, KeepsTheStoreAndEmptiesTheOtherTwo) {
    TempFolder folder;
    // An earlier run's store, last line without a line end, plus leftovers of a crash.
    const std::string old = dealtLayout() + ", Anna, \r\n" + "hand-written\xE9 line";
    writeBytes(folder / "save.txt", old);
    writeBytes(folder / "save1.txt", "stale deal\r\n");
    writeBytes(folder / "load.txt", "stale hand-over\r\n");
    LayoutStore store(folder.path());
    ASSERT_TRUE(store.openAtStartup()) << store.errorText();
    EXPECT_EQ(readBytes(folder / "save.txt"), old);
    EXPECT_EQ(readBytes(folder / "save1.txt"), "");
    EXPECT_EQ(readBytes(folder / "load.txt"), "");
}

TEST_F(StoreTest, NewGameWritesTheLayoutLineToSave1) {
    ASSERT_EQ(raskl.size(), 182u);
    ASSERT_TRUE(store.rewriteCurrentDeal(raskl)) << store.errorText();
    EXPECT_EQ(bytes("save1.txt"), raskl + "\r\n");
    const std::string next = dealtLayout(5);
    ASSERT_TRUE(store.rewriteCurrentDeal(next));
    EXPECT_EQ(bytes("save1.txt"), next + "\r\n");
}

TEST_F(StoreTest, SaveAppendsLayoutNameAndTerminator) {
    ASSERT_TRUE(store.appendRecord(raskl, "Anna")) << store.errorText();
    const std::string line = raskl + ", Anna, ";
    ASSERT_EQ(line.size(), 190u);
    EXPECT_EQ(bytes("save.txt"), line + "\r\n");
    EXPECT_EQ(store.readRecords(), std::vector<std::string>{line});
}

TEST_F(StoreTest, CyrillicNameIsStoredAsCp1251AndReadBack) {
    ASSERT_TRUE(store.appendRecord(raskl, "Ёлка №5"));
    EXPECT_EQ(bytes("save.txt"), raskl + ", \xA8\xEB\xEA\xE0 \xB9" "5, \r\n");
    const auto records = store.readRecords();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(parseRecord(records[0]).name, "Ёлка №5");
}

TEST_F(StoreTest, NamesAreStoredExactlyAsTyped) {
    ASSERT_TRUE(store.appendRecord(raskl, "  spaced  "));
    ASSERT_TRUE(store.appendRecord(raskl, "Smith, John"));
    ASSERT_TRUE(store.appendRecord(raskl, "日本"));
    EXPECT_EQ(bytes("save.txt"), raskl + ",   spaced  , \r\n" +       //
                                     raskl + ", Smith, John, \r\n" +  //
                                     raskl + ", ??, \r\n");
    const auto records = store.readRecords();
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(parseRecord(records[0]).name, "  spaced  ");
    EXPECT_EQ(parseRecord(records[1]).name, "Smith");  // the dialog shows up to the first comma
    EXPECT_EQ(parseRecord(records[1]).layout, raskl);
}

TEST_F(StoreTest, NameWithLineBreaksAndControlsStaysOnOneLine) {
    ASSERT_TRUE(store.appendRecord(raskl, std::string("two\r\nlines\tand\0nul\x7f", 19)));
    EXPECT_EQ(bytes("save.txt"), raskl + ", two lines and nul , \r\n");
    EXPECT_EQ(store.readRecords().size(), 1u);
}

TEST_F(StoreTest, TwoSavesWithTheSameNameGiveTwoRecords) {
    ASSERT_TRUE(store.appendRecord(raskl, "same"));
    ASSERT_TRUE(store.appendRecord(raskl, "same"));
    const std::string line = raskl + ", same, \r\n";
    EXPECT_EQ(bytes("save.txt"), line + line);
}

TEST_F(StoreTest, EmptyNameWritesNothing) {
    EXPECT_FALSE(store.appendRecord(raskl, ""));
    EXPECT_NE(store.errorText().find("save.txt"), std::string::npos) << store.errorText();
    EXPECT_EQ(bytes("save.txt"), "");
}

TEST(LayoutStoreSave, RecordAfterAHandWrittenLineWithoutLineEndStartsItsOwnLine) {
    TempFolder folder;
    writeBytes(folder / "save.txt", "hand-written");
    LayoutStore store(folder.path());
    ASSERT_TRUE(store.openAtStartup());
    ASSERT_TRUE(store.appendRecord("x", "Anna"));
    EXPECT_EQ(readBytes(folder / "save.txt"), "hand-written\r\nx, Anna, \r\n");
}

TEST(LayoutStoreSave, TheStoreGrowsAcrossRuns) {
    TempFolder folder;
    const std::string first = dealtLayout(5), second = dealtLayout(11);
    for (const auto& [layout, name] : {std::pair{first, "one"}, std::pair{second, "two"}}) {
        LayoutStore run(folder.path());
        ASSERT_TRUE(run.openAtStartup());
        ASSERT_TRUE(run.appendRecord(layout, name));
        run.shutdown();
    }
    EXPECT_EQ(readBytes(folder / "save.txt"), first + ", one, \r\n" + second + ", two, \r\n");
}

TEST(LayoutStoreSave, RecordSurvivesTheGameBeingKilled) {
    TempFolder folder;
    const std::string raskl = dealtLayout();
    const pid_t child = ::fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        LayoutStore store(folder.path());
        const bool saved = store.openAtStartup() && store.appendRecord(raskl, "kept");
        if (saved) ::kill(::getpid(), SIGKILL);  // straight after "Save OK"
        ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the child could not save";
    EXPECT_EQ(readBytes(folder / "save.txt"), raskl + ", kept, \r\n");
}

TEST(LayoutStoreRead, LinesAreDecodedWhateverTheirLineEnds) {
    TempFolder folder;
    writeBytes(folder / "save.txt", "a, \xC0, \r\nb\nc\r\xFF");
    LayoutStore store(folder.path());
    EXPECT_EQ(store.readRecords(), (std::vector<std::string>{"a, А, ", "b", "c", "я"}));
}

TEST(LayoutStoreRead, MissingStoreHasNoRecords) {
    TempFolder folder;
    EXPECT_TRUE(LayoutStore(folder.path()).readRecords().empty());
    EXPECT_EQ(LayoutStore(folder.path()).readHandOver(), "");
}

TEST_F(StoreTest, HandOverHoldsOneLine) {
    ASSERT_TRUE(store.writeHandOver(raskl)) << store.errorText();
    EXPECT_EQ(bytes("load.txt"), raskl + "\r\n");
    EXPECT_EQ(store.readHandOver(), raskl);
    ASSERT_TRUE(store.writeHandOver(""));
    EXPECT_EQ(bytes("load.txt"), "\r\n");
    EXPECT_EQ(store.readHandOver(), "");
    ASSERT_TRUE(store.writeHandOver("Ёж\nnext"));
    EXPECT_EQ(bytes("load.txt"), "\xA8\xE6 next\r\n");
    EXPECT_EQ(store.readHandOver(), "Ёж next");
}

TEST(LayoutStoreRead, HandOverGivesOnlyTheFirstLine) {
    TempFolder folder;
    writeBytes(folder / "load.txt", "first\nsecond\r\n");
    EXPECT_EQ(LayoutStore(folder.path()).readHandOver(), "first");
    writeBytes(folder / "load.txt", "\r\nsecond\r\n");
    EXPECT_EQ(LayoutStore(folder.path()).readHandOver(), "");
}

TEST_F(StoreTest, ShutdownLeavesOnlyTheStore) {
    writeBytes(folder / "ini.txt", "2\r\n");
    ASSERT_TRUE(store.rewriteCurrentDeal(raskl));
    ASSERT_TRUE(store.appendRecord(raskl, "Anna"));
    ASSERT_TRUE(store.writeHandOver(raskl));
    store.shutdown();
    EXPECT_EQ(store.errorText(), "");
    EXPECT_EQ(listing(folder.path()), "ini.txt save.txt");
    EXPECT_EQ(bytes("save.txt"), raskl + ", Anna, \r\n");
}

TEST_F(StoreTest, ShutdownOfAFreshFolderLeavesAnEmptyStore) {
    store.shutdown();
    EXPECT_EQ(listing(folder.path()), "save.txt");
    EXPECT_EQ(bytes("save.txt"), "");
    store.shutdown();  // the files are gone already: nothing to report
    EXPECT_EQ(store.errorText(), "");
}

}  // namespace
}  // namespace vorn::store
