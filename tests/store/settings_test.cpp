#include "store/settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "store/temp_folder.h"

namespace vorn::store {
namespace {

using testing::readBytes;
using testing::TempFolder;
using testing::writeBytes;

TEST(SettingsWrite, WritesOneLineWithCrLf) {
    TempFolder folder;
    Settings settings(folder.path());
    ASSERT_TRUE(settings.write(true)) << settings.errorText();
    EXPECT_EQ(readBytes(folder / "ini.txt"), "1\r\n");
    ASSERT_TRUE(settings.write(false)) << settings.errorText();
    EXPECT_EQ(readBytes(folder / "ini.txt"), "2\r\n");
    EXPECT_EQ(settings.errorText(), "");
}

TEST(SettingsWrite, ReplacesALongerFileWhole) {
    TempFolder folder;
    writeBytes(folder / "ini.txt", "2\r\nsome older lines\r\nand more\r\n");
    Settings settings(folder.path());
    ASSERT_TRUE(settings.write(true));
    EXPECT_EQ(readBytes(folder / "ini.txt"), "1\r\n");
}

TEST(SettingsWrite, WhatIsWrittenIsReadBack) {
    TempFolder folder;
    Settings settings(folder.path());
    ASSERT_TRUE(settings.write(true));
    EXPECT_TRUE(Settings(folder.path()).readEnglish());
    ASSERT_TRUE(settings.write(false));
    EXPECT_FALSE(Settings(folder.path()).readEnglish());
}

TEST(SettingsWrite, DirectoryInPlaceOfTheFileFailsWithAReason) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "ini.txt");
    Settings settings(folder.path());
    EXPECT_FALSE(settings.write(true));
    EXPECT_NE(settings.errorText().find("ini.txt"), std::string::npos) << settings.errorText();
    EXPECT_NE(settings.errorText().find("Is a directory"), std::string::npos) << settings.errorText();
    EXPECT_TRUE(std::filesystem::is_directory(folder / "ini.txt"));
}

TEST(SettingsWrite, MissingFolderFails) {
    TempFolder folder;
    Settings settings(folder / "gone");
    EXPECT_FALSE(settings.write(false));
    EXPECT_NE(settings.errorText().find("No such file or directory"), std::string::npos);
}

TEST(SettingsWrite, ReadOnlyFolderFails) {
    TempFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_read |
                                                    std::filesystem::perms::owner_exec);
    if (!testing::modeBitsProtect(folder.path())) GTEST_SKIP() << "running as root: mode bits do not stop writes";
    Settings settings(folder.path());
    EXPECT_FALSE(settings.write(true));
    EXPECT_NE(settings.errorText().find("Permission denied"), std::string::npos);
}

TEST(SettingsWrite, ASuccessClearsAnEarlierError) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "ini.txt");
    Settings settings(folder.path());
    ASSERT_FALSE(settings.write(true));
    std::filesystem::remove(folder / "ini.txt");
    EXPECT_TRUE(settings.write(true));
    EXPECT_EQ(settings.errorText(), "");
}

// Only a first line of exactly "1" means English.
struct FirstLineCase {
    const char* label;
    std::string content;
    bool english;
};

class SettingsFirstLine : public ::testing::TestWithParam<FirstLineCase> {};

TEST_P(SettingsFirstLine, DecidesTheLanguage) {
    TempFolder folder;
    writeBytes(folder / "ini.txt", GetParam().content);
    EXPECT_EQ(Settings(folder.path()).readEnglish(), GetParam().english);
}

INSTANTIATE_TEST_SUITE_P(
    Table, SettingsFirstLine,
    ::testing::Values(FirstLineCase{"OneCrLf", "1\r\n", true},
                      FirstLineCase{"OneWithoutLineEnd", "1", true},
                      FirstLineCase{"OneLf", "1\n", true},
                      FirstLineCase{"OneLoneCr", "1\rjunk", true},
                      FirstLineCase{"OneThenMoreLines", "1\r\nfoo\r\n2\r\n", true},
                      FirstLineCase{"Two", "2\r\n", false},
                      FirstLineCase{"Zero", "0\r\n", false},
                      FirstLineCase{"SpaceBefore", " 1\r\n", false},
                      FirstLineCase{"SpaceAfter", "1 \r\n", false},
                      FirstLineCase{"Word", "English\r\n", false},
                      FirstLineCase{"Eleven", "11\r\n", false},
                      FirstLineCase{"EmptyFirstLine", "\r\n1\r\n", false},
                      FirstLineCase{"Empty", "", false},
                      FirstLineCase{"Utf8Bom", "\xEF\xBB\xBF" "1\r\n", false},
                      FirstLineCase{"NulAfterOne", std::string("1\0\r\n", 4), false},
                      FirstLineCase{"NulOnly", std::string("\0\0\0", 3), false},
                      FirstLineCase{"Binary", "\x89PNG\r\n\x1a\n\x00\x01\xFF", false},
                      FirstLineCase{"HugeFirstLine", "1" + std::string(1 << 20, 'x') + "\r\n", false},
                      FirstLineCase{"HugeLineOfOnes", std::string(1 << 20, '1'), false}),
    [](const auto& info) { return std::string(info.param.label); });

TEST(SettingsRead, MissingFileMeansRussian) {
    TempFolder folder;
    EXPECT_FALSE(Settings(folder.path()).readEnglish());
    EXPECT_FALSE(Settings(folder / "no such folder").readEnglish());
}

TEST(SettingsRead, DirectoryNamedIniTxtMeansRussian) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "ini.txt");
    EXPECT_FALSE(Settings(folder.path()).readEnglish());
}

TEST(SettingsRead, PipeNamedIniTxtMeansRussianWithoutWaiting) {
    TempFolder folder;
    ASSERT_EQ(::mkfifo((folder / "ini.txt").c_str(), 0644), 0);
    EXPECT_FALSE(Settings(folder.path()).readEnglish());
}

TEST(SettingsRead, EachFolderHasItsOwnFile) {
    TempFolder english, russian;
    writeBytes(english / "ini.txt", "1\r\n");
    writeBytes(russian / "ini.txt", "2\r\n");
    EXPECT_TRUE(Settings(english.path()).readEnglish());
    EXPECT_FALSE(Settings(russian.path()).readEnglish());
}

}  // namespace
}  // namespace vorn::store
