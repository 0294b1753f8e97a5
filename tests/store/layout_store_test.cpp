// The layout store: save.txt only ever grows by the records saved, save1.txt
// and load.txt hold one line each, and a folder or file that cannot be written
// is named, never harms save.txt and never stops the rest.
#include "store/layout_store.h"

#include <signal.h>
#include <sys/stat.h>

#include "folder.h"
#include "store/record.h"

namespace vorn::store {
namespace {

using namespace testing;

const std::string kLayout = dealtLayout();
std::string record(const std::string& name) { return kLayout + ", " + name + ", \r\n"; }

TEST(LayoutStore, AStartUpCreatesTheFilesAndAnEndLeavesOnlyTheStore) {
    TempFolder folder;
    writeBytes(folder / "save.txt", record("Anna") + "hand-written\xE9 line");
    writeBytes(folder / "load.txt", "stale\r\n");
    LayoutStore store(folder.path());
    ASSERT_TRUE(store.openAtStartup()) << store.errorText();
    EXPECT_EQ(listing(folder.path()), "load.txt save.txt save1.txt");
    EXPECT_EQ(readBytes(folder / "save1.txt") + readBytes(folder / "load.txt"), "");
    EXPECT_EQ(readBytes(folder / "save.txt"), record("Anna") + "hand-written\xE9 line");
    store.shutdown();
    EXPECT_EQ(listing(folder.path()), "save.txt");
    store.shutdown();
    EXPECT_EQ(store.errorText(), "") << "files already gone are no trouble";
}

TEST(LayoutStore, WritesEachFileByteForByte) {
    TempFolder folder;
    LayoutStore store(folder.path());
    ASSERT_TRUE(store.openAtStartup());
    ASSERT_TRUE(store.rewriteCurrentDeal(dealtLayout(5)));
    ASSERT_TRUE(store.rewriteCurrentDeal(kLayout));
    EXPECT_EQ(readBytes(folder / "save1.txt"), kLayout + "\r\n");
    ASSERT_TRUE(store.emptyHandOver());
    EXPECT_EQ(readBytes(folder / "load.txt"), "");
    ASSERT_TRUE(store.writeHandOver("\t1,Ёж\nnext"));
    EXPECT_EQ(readBytes(folder / "load.txt"), "\t1,\xA8\xE6 next\r\n");
    EXPECT_EQ(store.readHandOver(), "\t1,Ёж next");
    writeBytes(folder / "load.txt", "first\nsecond\r\n");
    EXPECT_EQ(store.readHandOver(), "first");
    ASSERT_EQ(record("Anna").size(), 190u + 2);
    const std::pair<std::string, std::string> saved[] = {
        {"Anna", "Anna"},       {"  spaced  ", "  spaced  "}, {"Smith, John", "Smith, John"}, {"Ёлка №5", "\xA8\xEB\xEA\xE0 \xB9" "5"},
        {"日本", "??"},          {"a\r\nb\rc\nd", "a b c d"},   {std::string("t\tn\0x\x7f", 6), "t n x "},
    };
    std::string expected;
    for (const auto& [typed, stored] : saved) {
        ASSERT_TRUE(store.appendRecord(kLayout, typed)) << store.errorText();
        expected += kLayout + ", " + stored + ", \r\n";
    }
    EXPECT_EQ(readBytes(folder / "save.txt"), expected);
    EXPECT_FALSE(store.appendRecord(kLayout, "")) << "an empty name saves nothing";
    EXPECT_EQ(readBytes(folder / "save.txt"), expected);
}

TEST(LayoutStore, TheStoreOnlyGrows) {
    TempFolder folder;
    writeBytes(folder / "save.txt", "hand-written");  // no line end: the next record starts its own line
    for (const char* name : {"one", "two"}) {
        LayoutStore run(folder.path());
        ASSERT_TRUE(run.openAtStartup());
        ASSERT_TRUE(run.appendRecord(kLayout, name));
        run.shutdown();
    }
    EXPECT_EQ(readBytes(folder / "save.txt"), "hand-written\r\n" + record("one") + record("two"));
    const pid_t child = ::fork();
    if (child == 0) {
        LayoutStore store(folder.path());
        if (store.appendRecord(kLayout, "kept")) ::kill(::getpid(), SIGKILL);  // straight after "Save OK"
        ::_exit(1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the child could not save";
    EXPECT_EQ(readBytes(folder / "save.txt"), "hand-written\r\n" + record("one") + record("two") + record("kept"));
}

TEST(LayoutStore, ReadsEveryLineWhateverItsBytes) {
    TempFolder folder;
    std::string big;
    for (int i = 0; i < 100000; ++i) big += record("n" + std::to_string(i));
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"a, \xC0, \r\nb\nc\r\xFF", {"a, А, ", "b", "c", "я"}},
        {"\r\n\n\r", {"", "", ""}},
        {"a\n\rb\r\r\nc", {"a", "", "b", "", "c"}},
        {std::string("a\0b\r\n", 5), {std::string("a\0b", 3)}},
        {std::string(1 << 20, 'x'), {std::string(1 << 20, 'x')}},
        {"", {}},
    };
    for (const auto& [bytes, lines] : cases) {
        writeBytes(folder / "save.txt", bytes);
        EXPECT_EQ(LayoutStore(folder.path()).readRecords(), lines) << bytes.substr(0, 20);
    }
    writeBytes(folder / "save.txt", big);
    const std::vector<std::string> lines = LayoutStore(folder.path()).readRecords();
    ASSERT_EQ(lines.size(), 100000u);
    EXPECT_EQ(parseRecord(lines.back()).name, "n99999");
    EXPECT_TRUE(LayoutStore(folder / "gone").readRecords().empty());
}

// A directory, a pipe, a missing folder or a read-only file in the way: each
// access that fails names its file and why, the others go on, save.txt stays.
TEST(LayoutStore, WhatCannotBeWrittenIsNamedAndSaveTxtIsNeverHarmed) {
    for (const char* blocked : {"save1.txt", "load.txt", "save.txt"}) {
        TempFolder folder;
        if (std::string(blocked) != "save.txt") writeBytes(folder / "save.txt", record("Anna"));
        std::filesystem::create_directory(folder / blocked);
        LayoutStore store(folder.path());
        EXPECT_FALSE(store.openAtStartup());
        EXPECT_NE(store.errorText().find(std::string(blocked) + ": opening for"), std::string::npos) << store.errorText();
        const bool saved = store.appendRecord(kLayout, "Bob");
        EXPECT_EQ(saved, std::string(blocked) != "save.txt") << blocked;
        EXPECT_EQ(store.rewriteCurrentDeal(kLayout), std::string(blocked) != "save1.txt") << blocked;
        EXPECT_EQ(store.writeHandOver(kLayout), std::string(blocked) != "load.txt") << blocked;
        store.shutdown();
        EXPECT_TRUE(std::filesystem::is_directory(folder / blocked)) << "not the game's to delete";
        if (saved) {
            EXPECT_EQ(readBytes(folder / "save.txt"), record("Anna") + record("Bob"));
        }
    }
    TempFolder folder;
    LayoutStore lost(folder / "gone");
    EXPECT_FALSE(lost.openAtStartup());
    for (const char* name : {"save1.txt", "save.txt", "load.txt", "No such file"})
        EXPECT_NE(lost.errorText().find(name), std::string::npos) << lost.errorText();
    ASSERT_EQ(::mkfifo((folder / "save.txt").c_str(), 0644), 0);
    EXPECT_FALSE(LayoutStore(folder.path()).appendRecord(kLayout, "Anna")) << "a pipe does not hang the game";
    EXPECT_TRUE(LayoutStore(folder.path()).readRecords().empty());

    TempFolder readOnly;
    writeBytes(readOnly / "save.txt", record("Anna"));
    ::chmod((readOnly / "save.txt").c_str(), 0444);
    ::chmod(readOnly.path().c_str(), 0555);
    EXPECT_TRUE(asOrdinaryUser([&] {
        LayoutStore store(readOnly.path());
        if (store.openAtStartup() || store.errorText().find("Permission denied") == std::string::npos)
            return "start-up: " + store.errorText();
        if (store.appendRecord(kLayout, "Bob")) return std::string("saved into a read-only save.txt");
        if (store.readRecords().size() != 1) return std::string("the store cannot be read");
        return readBytes(readOnly / "save.txt") == record("Anna") ? std::string() : std::string("save.txt changed");
    }));
}

// A hand-over keeps to one line: each line end, LF CR two, becomes a space.
TEST(LayoutStore, NamesAreKeptToOneLine) { EXPECT_EQ(oneLine("a\r\nb\n\rc\td"), "a b  c\td"); }

}  // namespace
}  // namespace vorn::store
