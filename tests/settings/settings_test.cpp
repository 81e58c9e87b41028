#include "platform/runtime_error.hpp"
#include "settings/application_settings.hpp"
#include "settings/csetting.hpp"
#include "support/temporary_folder.hpp"

#include <sys/stat.h>

namespace pelrath::test {
namespace {

struct ProfileFiles : testing::Test {
    ProfileFiles() {
        setting.Init("  " + folder.file("a") + " ", CSetting::IniMode);
        EXPECT_EQ(row(setting.appName(), setting.iniFileName()), folder.file("a, ") + folder.file("a.ini"));
    }
    void write(const std::string& content) const { (void)folder.write("a.ini", content); }
    [[nodiscard]] std::string file() const { return folder.read("a.ini"); }

    TemporaryFolder folder;
    CSetting setting;
};

// A number as it is read, or the failure of reading it.
std::string numberIn(CSetting& setting, const char* key) {
    int number = 0;
    const RuntimeError error = failureOf([&] { number = setting.GetSettingInt("s", key, 99); });
    return error.number() == 0 ? std::to_string(number)
                               : row(error.number(), error.source(), error.description());
}

TEST_F(ProfileFiles, ValuesAreFoundAsTheFormatHasThem) {
    write("\xEF\xBB\xBF; comment\r\nstray=1\r\n[ Setup ]x\r\n Key One = a = b ;c \r\n"
          "single='q'\r\ndouble=\" q \"\r\nhalf=\"q\r\nmark=\"\r\nempty=\r\n;hidden=1\r\nno equals sign\r\n"
          "folder=/home/\u00E9t\u00E9/\u0394\r\n[Other]\r\nKey One=other\r\n[setup]\r\nlate=1");
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"Setup", "Key One", "a = b ;c"}, {"SETUP", "key one", "a = b ;c"},
        {"setup", "single", "q"},         {"setup", "double", "q"},
        {"setup", "half", "\"q"},         {"setup", "empty", ""},
        {"setup", "hidden", "default"},   {"setup", "stray", "default"},
        {"Other", "Key One", "other"},    {"setup", "late", "default"},
        {"setup", "mark", "\""},          {"setup", "no equals sign", "default"},
        {"none", "Key One", "default"},   {"setup", "folder", "/home/\u00E9t\u00E9/\u0394"}};
    for (const auto& [section, key, value] : cases) {
        EXPECT_EQ(setting.GetSettingStr(section, key, "default"), value) << section << '/' << key;
    }
    write("[s]\nlong=\u00E9" + std::string(200, 'x'));
    EXPECT_EQ(setting.GetSettingStr("s", "long", ""), "\u00E9" + std::string(126, 'x')); // characters
}

// What is put among any bytes is replayed in fuzz/profile_fuzz.cpp.
TEST_F(ProfileFiles, WritingLeavesEverythingElse) {
    setting.SaveSettingInt("New", "number", -5);
    EXPECT_EQ(file(), "[New]\nnumber=-5\n");
    write("\xEF\xBB\xBF; mine \xE9\r\n[Setup]\r\nfirst=1\r\n; note\r\n\r\n[Last]\r\nend=\xFF\x80");
    setting.SaveSettingStr("SETUP", "FIRST", "two words");
    setting.SaveSettingStr("Setup", "added", "'\u00E9'"); // whose quotes are its own
    EXPECT_EQ(file(), "\xEF\xBB\xBF; mine \xE9\r\n[Setup]\r\nFIRST=two words\r\n; note\r\n"
                      "added=\"'\u00E9'\"\r\n\r\n[Last]\r\nend=\xFF\x80");
    EXPECT_EQ(folder.list(), "a.ini");
    std::filesystem::create_hard_link(folder.file("a.ini"), folder.file("same"));
    setting.SaveSettingStr("Setup", "FIRST", "two words");
    EXPECT_TRUE(std::filesystem::equivalent(folder.file("a.ini"), folder.file("same"))) << "nothing is new";
}

TEST_F(ProfileFiles, AFailedWriteIsSilentAndLeavesTheFileWhole) {
    const std::string before = "[s]\nk=" + std::string(2000, 'x') + "\n";
    write(before);
    (FullDisk{500}, setting.SaveSettingStr("s", "other", "y"));
    EXPECT_EQ(file(), before);
    EXPECT_EQ(folder.list(), "a.ini");
    setting.Init(folder.file("missing/a"), CSetting::IniMode);
    setting.SaveSettingStr("s", "k", "v");
    EXPECT_EQ(setting.GetSettingStr("s", "k", "default"), "default");
}

TEST_F(ProfileFiles, WhatIsThereAndCannotBeReadIsNotMissing) {
    mknod(folder.file("a.ini").c_str(), S_IFSOCK, 0); // which no file's open() opens
    const RuntimeError error = failureOf([&] { (void)setting.GetSettingStr("s", "k", ""); });
    EXPECT_EQ(row(error.number(), error.source()), "-2147220989, CSetting.GetSettingStr");
    EXPECT_TRUE(error.description().starts_with("Error reading Setting (68, Device unavailable ("));
    EXPECT_TRUE(numberIn(setting, "k").starts_with("-2147220989, CSetting.GetSettingInt, "));
}

TEST_F(ProfileFiles, APassIsOfOneReadingAndWritesAllAtOnce) {
    write("[s]\na=1\nb=1\n");
    setting.beginPass();
    EXPECT_EQ(setting.GetSettingInt("s", "a", 0), 1);
    write("[s]\na=2\nb=2\n");
    EXPECT_EQ(setting.GetSettingStr("s", "b", ""), "1");
    setting.SaveSettingInt("s", "a", 3);
    EXPECT_EQ(file(), "[s]\na=2\nb=2\n");
    setting.endPass();
    EXPECT_EQ(file(), "[s]\na=3\nb=1\n");
}

// The folder is read once a process: all of it in one test.
TEST(Registry, KeepsTextsOfAnyKindAndReadsNumbersAsAFileDoesNot) {
    const TemporaryFolder folder;
    setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    CSetting first;
    EXPECT_EQ(first.GetSettingStr("s", "k", "default"), "default"); // initialises itself
    EXPECT_TRUE(first.appName().ends_with("settings-tests") && first.SaveMode() == CSetting::RegistryMode);

    CSetting setting;
    setting.Init("Some App/1");
    const std::string odd = " \"x\"=[y]\n\\\t\u00E9 " + std::string(300, 'z') + " ";
    setting.SaveSettingStr("A [section]", "a key=", odd);
    EXPECT_EQ(setting.GetSettingStr("a [SECTION]", "A KEY=", ""), odd);
    EXPECT_EQ(first.GetSettingStr("A [section]", "a key=", "other application"), "other application");
    CSetting file;
    file.Init(folder.file("a"), CSetting::IniMode);
    const char* const overflow = "-2147220989, CSetting.GetSettingInt, Error reading Setting (6, Overflow)";
    // What is stored, and the number that it is here and in a file.
    const std::array<const char*, 3> cases[] = {{"+7", "7", "7"},
                                                {"+-5", "0", "0"},
                                                {"1e3", "1000", "1"},
                                                {"0x1F", "0", "31"},
                                                {"0o17", "0", "15"},
                                                {"2.5", "2", "2"},
                                                {"3.5", "4", "3"},
                                                {"-0b101", "0", "-5"},
                                                {"12abc", "0", "12"},
                                                {"", "0", "99"},
                                                {"32767", "32767", "32767"},
                                                {"-32768", "-32768", "-32768"},
                                                {"40000", overflow, overflow},
                                                {"-40000", overflow, overflow},
                                                {"4294967297", overflow, "1"},
                                                {"1e99", overflow, "1"},
                                                {"\x01\x02\xFF", "0", "0"}};
    for (const auto& [stored, number, inFile] : cases) {
        setting.SaveSettingStr("s", "number", stored);
        EXPECT_EQ(numberIn(setting, "number"), number) << stored;
        (void)folder.write("a.ini", std::string{"[s]\nnumber="} + stored + "\n");
        EXPECT_EQ(numberIn(file, "number"), inFile) << stored;
    }
    EXPECT_EQ(numberIn(setting, "missing"), "99");
    setting.SaveSettingInt("s", "number", -7);
    EXPECT_EQ(setting.GetSettingStr("s", "number", ""), "-7");

    CSetting longNamed;
    longNamed.Init("/" + std::string(400, 'n') + "/\xFF"); // longer than a file's name can be, and no text
    longNamed.SaveSettingStr("\xFE", "k", "kept");
    EXPECT_EQ(longNamed.GetSettingStr("\xFE", "k", ""), "kept");

    for (const auto& stored : std::filesystem::directory_iterator{folder.file("pelrath")}) {
        std::ofstream{stored.path()} << "rubbish";
    }
    const RuntimeError error = failureOf([&] { setting.SaveSettingStr("s", "k", "v"); });
    EXPECT_EQ(row(error.number(), error.source()), "-2147220990, CSetting.SaveSettingStr");
    EXPECT_TRUE(error.description().starts_with("Error writing Setting (57, "));
}

TEST(ApplicationSettingsFile, HoldsNineKeys) {
    const TemporaryFolder folder;
    ApplicationSettings settings;
    settings.mainTop = 10.5;
    settings.mainLeft = -3.2;
    settings.extractionFolder = "/a b";
    saveApplicationSettings(folder.file("Pelrath"), settings);
    EXPECT_EQ(folder.read("Pelrath.ini"),
              "[Settings]\nMainTop=10\nMainLeft=-3\nViewPortWidth=512\nViewPortHeight=512\n"
              "ViewPortColor=0\nbazartempfolder=\ncddsbackupfolder=\n"
              "[Setup]\nextractionfolder=/a b\nfirsttimedone=False\n");
    loadApplicationSettings(folder.file("none"), settings);
    EXPECT_EQ(row(settings.mainTop, settings.extractionFolder), "0, ");
}

TEST(SettingsBesideTheKeys, AreInSectionsOfTheirOwnThatHoldTheTenNewestArchives) {
    const TemporaryFolder folder;
    ApplicationSettings settings;
    saveApplicationSettings(folder.file("Pelrath"), settings);
    const std::string before = folder.read("Pelrath.ini");
    for (const char* path :
         {"/0", "/1", "/2", "/3", "/4", "/5", "/6", "/7", "/8", "/\u05D0 b ", "/5", "/x\ny", ""}) {
        settings.recentArchives.add(path);
    }
    settings.recentArchives.add("/" + std::string(300, 'z'));
    const std::string kept = "[Recent]\n1=/" + std::string(300, 'z') +
                             "\n2=/5\n3=\"/\u05D0 b \"\n4=/8\n5=/7\n6=/6\n7=/4\n8=/3\n9=/2\n10=/1\n";
    settings.remembered.insertion = "image create";
    saveApplicationSettings(folder.file("Pelrath"), settings);
    EXPECT_EQ(folder.read("Pelrath.ini"), before + kept + "[Remember]\nInsertion=image create\n");
    loadApplicationSettings(folder.file("Pelrath"), settings);
    EXPECT_EQ(row(settings.recentArchives.paths().size(), settings.recentArchives.paths().at(2)),
              "10, /\u05D0 b ");
    EXPECT_EQ(settings.remembered.insertion, "image create");
    settings.recentArchives.clear();
    saveApplicationSettings(folder.file("Pelrath"), settings);
    loadApplicationSettings(folder.file("Pelrath"), settings);
    EXPECT_TRUE(settings.recentArchives.paths().empty());
}

} // namespace
} // namespace pelrath::test
