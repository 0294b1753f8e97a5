// Whatever a player's folder holds, the store neither crashes nor harms save.txt:
// damaged settings mean Russian, damaged store lines are read as far as they go
// (and refused when their layout cannot be laid out), and save.txt changes only
// when the player saves, by exactly the one record saved.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "board/board.h"
#include "store/layout_fixture.h"
#include "store/record.h"
#include "store/settings.h"

namespace vorn::store {
namespace {

using testing::dealtLayout;
using testing::readBytes;
using testing::TempFolder;
using testing::writeBytes;

constexpr std::size_t kMiB = 1u << 20;
const std::string kLayout = dealtLayout();  // 182 characters, first field " 1"

std::string record(const std::string& name) { return kLayout + ", " + name + ", \r\n"; }
std::string withFirstField(const std::string& field) { return field + kLayout.substr(kLayout.find(',')); }

// Bytes of every value but CR, LF and the comma, NUL and high bytes included.
std::string binary(std::size_t size, unsigned seed) {
    std::mt19937 rng(seed);
    std::string bytes;
    while (bytes.size() < size) {
        const char c = static_cast<char>(rng() & 0xFF);
        if (c != '\r' && c != '\n' && c != ',') bytes += c;
    }
    return bytes;
}

bool mentions(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

// ---- ini.txt ---------------------------------------------------------------------

struct IniCase {
    const char* what;
    std::string bytes;
    bool english;
};

TEST(BadIni, OnlyAFirstLineOfExactly1MeansEnglish) {
    const std::vector<IniCase> cases{
        {"empty file", "", false},
        {"binary", binary(4096, 1), false},
        {"binary after a first line of 1", "1\r\n" + binary(4096, 2), true},
        {"NUL after the 1", std::string("1\0\r\n", 4), false},
        {"NUL before the 1", std::string("\0" "1\r\n", 4), false},
        {"NUL bytes only", std::string(16, '\0'), false},
        {"1 MiB first line starting with 1", "1" + std::string(kMiB, 'x') + "\r\n", false},
        {"1 MiB first line of ones", std::string(kMiB, '1'), false},
        {"1 MiB second line", "1\r\n" + std::string(kMiB, 'x'), true},
        {"UTF-8 byte order mark", "\xEF\xBB\xBF" "1\r\n", false},
        {"UTF-16 text", std::string("\xFF\xFE" "1\0\r\0\n\0", 8), false},
        {"LF line end", "1\n", true},
        {"CR line end", "1\r", true},
        {"no line end", "1", true},
    };
    for (const IniCase& c : cases) {
        SCOPED_TRACE(c.what);
        TempFolder folder;
        writeBytes(folder / "ini.txt", c.bytes);
        EXPECT_EQ(Settings(folder.path()).readEnglish(), c.english);
        EXPECT_EQ(readBytes(folder / "ini.txt"), c.bytes);  // reading never rewrites
    }
}

TEST(BadIni, DirectoryNamedIniTxt) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "ini.txt");
    Settings settings(folder.path());
    EXPECT_FALSE(settings.readEnglish());
    EXPECT_FALSE(settings.write(true));
    EXPECT_TRUE(mentions(settings.errorText(), "ini.txt")) << settings.errorText();
    EXPECT_TRUE(std::filesystem::is_directory(folder / "ini.txt"));
}

TEST(BadIni, ReadOnlyIniKeepsItsBytes) {
    TempFolder folder;
    writeBytes(folder / "ini.txt", "1\r\n");
    std::filesystem::permissions(folder / "ini.txt", std::filesystem::perms::owner_read);
    Settings settings(folder.path());
    if (settings.write(false)) GTEST_SKIP() << "running as root: mode bits do not stop writes";
    EXPECT_TRUE(mentions(settings.errorText(), "ini.txt")) << settings.errorText();
    EXPECT_EQ(readBytes(folder / "ini.txt"), "1\r\n");
    EXPECT_TRUE(settings.readEnglish());
}

// ---- save.txt ----------------------------------------------------------------------

struct StoreCase {
    const char* what;
    std::string bytes;
    std::size_t records;  // lines the load dialog pages through
    int laysOut;          // -1 nothing to lay out, else whether the first record's layout lays out
    int16_t firstPlace = 1;  // place read for the first card when it lays out
    const char* firstName = nullptr;  // the first record's name, when checked
};

std::vector<StoreCase> badStores() {
    const std::string damaged = kLayout.substr(0, 100);  // cut off after 25 fields
    return {
        {"empty file", "", 0, -1},
        {"binary", binary(3000, 3) + "\r\n" + binary(3000, 4) + "\n" + binary(3000, 5), 3, 0},
        {"NUL bytes in a name", kLayout + ", An" + std::string(1, '\0') + "na, \r\n", 1, 1, 1,
         nullptr},
        {"a line of NUL bytes", std::string(8, '\0') + "\r\n" + record("Anna"), 2, 0},
        {"a 1 MiB line", std::string(kMiB, 'x') + "\r\n" + record("Anna"), 2, 0},
        {"a 1 MiB name", record(std::string(kMiB, 'n')), 1, 1},
        {"no comma", "no comma at all\r\n" + record("Anna"), 2, 0},
        {"only commas", std::string(300, ',') + "\r\n", 1, 1, 0, ""},
        {"48 commas, no terminator", kLayout + ", Anna\r\n", 1, 1, 1, "Anna"},
        {"47 commas: a bare layout", kLayout + "\r\n", 1, 1, 1, ""},
        {"fewer than 47 commas", damaged + ", Anna, \r\n", 1, 0},
        {"a comma right after the 48th", kLayout + ",, Anna, \r\n", 1, 1, 1, ""},
        {"CR-only line ends", kLayout + ", A, \r" + kLayout + ", B, \r" + kLayout + ", C, \r", 3, 1, 1, "A"},
        {"LF-only line ends", kLayout + ", A, \n" + kLayout + ", B, \n", 2, 1, 1, "A"},
        {"an empty line between records", record("A") + "\r\n" + record("B"), 3, 1, 1, "A"},
        {"no final line end", record("A") + kLayout + ", B, ", 2, 1, 1, "A"},
        {"a place above 48", record("A").replace(0, 2, " 49"), 1, 1, 49, "A"},
        {"a place above 16 bits", withFirstField(" 70000") + ", A, \r\n", 1, 0},
        {"a place of 25 digits", withFirstField(" " + std::string(25, '9')) + ", A, \r\n", 1, 0},
        {"a negative place", withFirstField(" -5") + ", A, \r\n", 1, 1, 0, "A"},
        {"UTF-8 byte order mark", "\xEF\xBB\xBF" + record("A"), 1, 1, 0, "A"},
    };
}

// A run of the game without a Save: start-up, the load dialog reads every line
// and hands back the first, the end of the run. Then one Save.
TEST(BadStore, ReadAsFarAsItGoesAndNeverHarmed) {
    for (const StoreCase& c : badStores()) {
        SCOPED_TRACE(c.what);
        TempFolder folder;
        writeBytes(folder / "save.txt", c.bytes);
        LayoutStore store(folder.path());
        EXPECT_TRUE(store.openAtStartup()) << store.errorText();

        const std::vector<std::string> lines = store.readRecords();
        ASSERT_EQ(lines.size(), c.records);
        for (const std::string& line : lines) {
            EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
            const RecordView view = parseRecord(line);
            EXPECT_EQ(view.name.find(','), std::string::npos);
        }
        if (c.laysOut >= 0) {
            const RecordView first = parseRecord(lines.front());
            std::array<int16_t, 49> places{};
            const LayoutProblem problem = readLayout(first.layout, places);
            EXPECT_EQ(problem == LayoutProblem::None, c.laysOut == 1) << static_cast<int>(problem);
            if (problem == LayoutProblem::None) {
                EXPECT_EQ(places[1], c.firstPlace);
            }
            if (c.firstName) {
                EXPECT_EQ(first.name, c.firstName);
            }
            if (problem == LayoutProblem::None) {  // chosen in the dialog and handed over
                ASSERT_TRUE(store.writeHandOver(first.layout)) << store.errorText();
                EXPECT_EQ(store.readHandOver(), first.layout);
            }
        }
        store.shutdown();
        EXPECT_EQ(readBytes(folder / "save.txt"), c.bytes);

        // The player saves: exactly one record is added, on a line of its own.
        ASSERT_TRUE(store.appendRecord(kLayout, "Zoe")) << store.errorText();
        const bool open = !c.bytes.empty() && c.bytes.back() != '\n' && c.bytes.back() != '\r';
        EXPECT_EQ(readBytes(folder / "save.txt"), c.bytes + (open ? "\r\n" : "") + record("Zoe"));
        const std::vector<std::string> after = store.readRecords();
        ASSERT_EQ(after.size(), c.records + 1);
        EXPECT_EQ(parseRecord(after.back()).name, "Zoe");
        EXPECT_EQ(parseRecord(after.back()).layout, kLayout);
    }
}

TEST(BadStore, HundredThousandRecords) {
    std::string bytes;
    bytes.reserve(100000 * 200);
    for (int i = 0; i < 100000; ++i) bytes += record("n" + std::to_string(i));
    TempFolder folder;
    writeBytes(folder / "save.txt", bytes);
    LayoutStore store(folder.path());
    ASSERT_TRUE(store.openAtStartup()) << store.errorText();
    const std::vector<std::string> lines = store.readRecords();
    ASSERT_EQ(lines.size(), 100000u);
    EXPECT_EQ(parseRecord(lines.front()).name, "n0");
    EXPECT_EQ(parseRecord(lines.back()).name, "n99999");
    store.shutdown();
    EXPECT_EQ(readBytes(folder / "save.txt"), bytes);
}

// A name is one field of one line, whatever was typed into the name box.
TEST(BadName, LineBreaksAndControlCharactersBecomeSpaces) {
    struct Case {
        const char* what;
        std::string typed;
        std::string stored;  // Windows-1251 bytes between ", " and ", "
    };
    const std::vector<Case> cases{
        {"CR LF", "two\r\nlines", "two lines"},
        {"lone CR and LF", "a\rb\nc", "a b c"},
        {"tab, escape, DEL", "a\tb\x1b" "c\x7f", "a b c "},
        {"NUL", std::string("a\0b", 3), "a b"},
        {"only a line break", "\r\n", " "},
        {"Cyrillic with a line break", "Пась\nянс", "\xCF\xE0\xF1\xFC \xFF\xED\xF1"},
        {"Unicode line separator", "a\u2028b", "a?b"},
        {"broken UTF-8", "a\xC3", "a?"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TempFolder folder;
        LayoutStore store(folder.path());
        ASSERT_TRUE(store.appendRecord(kLayout, c.typed)) << store.errorText();
        EXPECT_EQ(readBytes(folder / "save.txt"), kLayout + ", " + c.stored + ", \r\n");
        EXPECT_EQ(store.readRecords().size(), 1u);
    }
}

// ---- things in place of files, and a folder that cannot be written ------------------

TEST(BadFolder, DirectoriesInPlaceOfFilesLeaveTheStoreWorking) {
    const std::string old = record("Anna");
    for (const char* name : {"ini.txt", "save1.txt", "load.txt"}) {
        SCOPED_TRACE(name);
        TempFolder folder;
        writeBytes(folder / "save.txt", old);
        std::filesystem::create_directory(folder / name);
        LayoutStore store(folder.path());
        Settings settings(folder.path());
        store.openAtStartup();
        store.rewriteCurrentDeal(kLayout);
        EXPECT_EQ(store.readRecords(), std::vector<std::string>{old.substr(0, old.size() - 2)});
        store.writeHandOver(kLayout);
        settings.write(true);
        store.shutdown();
        EXPECT_EQ(readBytes(folder / "save.txt"), old);
        ASSERT_TRUE(store.appendRecord(kLayout, "Bob")) << store.errorText();
        EXPECT_EQ(readBytes(folder / "save.txt"), old + record("Bob"));
        EXPECT_TRUE(std::filesystem::is_directory(folder / name));
    }
}

TEST(BadFolder, ReadOnlyHandOverAndCurrentDealFiles) {
    for (const char* name : {"save1.txt", "load.txt"}) {
        SCOPED_TRACE(name);
        TempFolder folder;
        writeBytes(folder / "save.txt", record("Anna"));
        writeBytes(folder / name, "stale\r\n");
        std::filesystem::permissions(folder / name, std::filesystem::perms::owner_read);
        LayoutStore store(folder.path());
        if (store.openAtStartup()) GTEST_SKIP() << "running as root: mode bits do not stop writes";
        EXPECT_TRUE(mentions(store.errorText(), name)) << store.errorText();
        EXPECT_TRUE(mentions(store.errorText(), "Permission denied")) << store.errorText();
        const bool written = name == std::string("save1.txt") ? store.rewriteCurrentDeal(kLayout)
                                                               : store.writeHandOver(kLayout);
        EXPECT_FALSE(written);
        ASSERT_TRUE(store.appendRecord(kLayout, "Bob")) << store.errorText();
        EXPECT_EQ(readBytes(folder / "save.txt"), record("Anna") + record("Bob"));
    }
}

TEST(BadFolder, ReadOnlyFolderAndFiles) {
    TempFolder folder;
    writeBytes(folder / "save.txt", record("Anna"));
    writeBytes(folder / "ini.txt", "1\r\n");
    for (const char* name : {"save.txt", "ini.txt"})
        std::filesystem::permissions(folder / name, std::filesystem::perms::owner_read);
    using std::filesystem::perms;
    std::filesystem::permissions(folder.path(), perms::owner_read | perms::owner_exec);
    if (!testing::modeBitsProtect(folder.path())) GTEST_SKIP() << "running as root: mode bits do not stop writes";

    LayoutStore store(folder.path());
    Settings settings(folder.path());
    EXPECT_TRUE(settings.readEnglish());
    EXPECT_FALSE(store.openAtStartup());
    EXPECT_EQ(store.readRecords().size(), 1u);
    EXPECT_FALSE(store.appendRecord(kLayout, "Bob"));
    EXPECT_TRUE(mentions(store.errorText(), "save.txt")) << store.errorText();
    EXPECT_FALSE(settings.write(false));
    store.shutdown();
    EXPECT_EQ(readBytes(folder / "save.txt"), record("Anna"));
    EXPECT_EQ(readBytes(folder / "ini.txt"), "1\r\n");
}

}  // namespace
}  // namespace vorn::store
