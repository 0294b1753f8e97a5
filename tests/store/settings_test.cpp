// ini.txt: one line, "1" for English, anything else Russian.
#include "store/settings.h"

#include <sys/stat.h>

#include "folder.h"

namespace vorn::store {
namespace {

using namespace testing;

TEST(Settings, OnlyAFirstLineOfExactly1MeansEnglish) {
    const std::pair<std::string, bool> cases[] = {
        {"1\r\n", true},   {"1", true},         {"1\n", true},       {"1\rjunk", true},    {"1\r\n2\r\n", true},
        {"2\r\n", false},  {"0\r\n", false},    {" 1\r\n", false},   {"1 \r\n", false},    {"11\r\n", false},
        {"English", false}, {"\r\n1\r\n", false}, {"", false},      {"\xEF\xBB\xBF" "1\r\n", false},
        {std::string("1\0\r\n", 4), false},      {"1" + std::string(1 << 20, 'x'), false},
        {"1\r\n" + std::string(1 << 20, '\xff'), true},
    };
    for (const auto& [bytes, english] : cases) {
        TempFolder folder;
        writeBytes(folder / "ini.txt", bytes);
        EXPECT_EQ(Settings(folder.path()).readEnglish(), english) << bytes.substr(0, 20);
        EXPECT_EQ(readBytes(folder / "ini.txt"), bytes) << "reading never writes";
    }
}

TEST(Settings, NoFileToReadMeansRussian) {
    TempFolder folder;
    EXPECT_FALSE(Settings(folder / "no such folder").readEnglish());
    EXPECT_FALSE(Settings(folder.path()).readEnglish());
    std::filesystem::create_directory(folder / "ini.txt");
    EXPECT_FALSE(Settings(folder.path()).readEnglish());
    TempFolder piped;
    ASSERT_EQ(::mkfifo((piped / "ini.txt").c_str(), 0644), 0);
    EXPECT_FALSE(Settings(piped.path()).readEnglish()) << "and it does not wait for a writer";
}

TEST(Settings, WritingReplacesTheFileWithOneLine) {
    TempFolder folder;
    writeBytes(folder / "ini.txt", "2\r\nolder lines\r\n");
    Settings settings(folder.path());
    ASSERT_TRUE(settings.write(true)) << settings.errorText();
    EXPECT_EQ(readBytes(folder / "ini.txt"), "1\r\n");
    EXPECT_TRUE(settings.readEnglish());
    ASSERT_TRUE(settings.write(false));
    EXPECT_EQ(readBytes(folder / "ini.txt"), "2\r\n");
}

TEST(Settings, AFileThatCannotBeWrittenIsNamedAndLeftAsItWas) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "ini.txt");
    Settings settings(folder.path());
    EXPECT_FALSE(settings.write(true));
    EXPECT_EQ(settings.errorText(), (folder / "ini.txt").string() + ": opening for writing failed: Is a directory");
    std::filesystem::remove(folder / "ini.txt");
    EXPECT_TRUE(settings.write(true));
    EXPECT_EQ(settings.errorText(), "") << "a success clears the error";

    ::chmod((folder / "ini.txt").c_str(), 0444);
    EXPECT_TRUE(asOrdinaryUser([&] {
        Settings readOnly(folder.path());
        if (readOnly.write(false)) return std::string("wrote a read-only ini.txt");
        if (readOnly.errorText().find("Permission denied") == std::string::npos) return readOnly.errorText();
        return readBytes(folder / "ini.txt") == "1\r\n" ? std::string() : std::string("ini.txt changed");
    }));
}

}  // namespace
}  // namespace vorn::store
