#include "dialogs/browse_for_folder.hpp"

#include "support/scripted_picker.hpp"
#include "support/temporary_folder.hpp"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace pelrath::test {
namespace {

struct BrowseForFolderTest : testing::Test {
    /// The failure of the work, which shows nothing.
    template <class Work>
    std::string failure(Work work) {
        const int before = picker.shown;
        const RuntimeError error = failureOf(work);
        EXPECT_EQ(picker.shown, before);
        return row(error.number(), error.source(), error.description());
    }
    ScriptedPicker picker;
    cBrowseForFolder browser{picker};
};

TEST_F(BrowseForFolderTest, TheFlagWordIsMadeOfTheProperties) {
    using B = cBrowseForFolder;
    const std::pair<bool B::*, std::uint32_t> cases[] = {{&B::EditBox, 0x10},
                                                         {&B::StatusText, 0x4},
                                                         {&B::FileSystemOnly, 0x9},
                                                         {&B::ValidateEditBox, 0x20},
                                                         {&B::UseNewUI, 0x40}};
    for (const auto& [property, expected] : cases) {
        B fresh{picker};
        fresh.*property = browser.*property = true;
        EXPECT_EQ(fresh.BrowseForFolder(), "");
        EXPECT_EQ(picker.asked.flags, expected);
    }
    browser.BrowseForFolder();
    EXPECT_EQ(row(picker.asked.flags, picker.asked.title, picker.asked.owner), row(0x7D, "Choose Folder", 0));
}

TEST_F(BrowseForFolderTest, PropertiesReachTheDialogAndFoldersBecomeFullPaths) {
    browser.hwndOwner = 77;
    browser.title = "Wo?";
    browser.InitialDir = "a/./b//c/..";
    browser.RootDir = "/x/../y//";
    browser.BrowseForFolder();
    const std::string initial = std::filesystem::current_path().string() + "/a/b";
    EXPECT_EQ(
        row(picker.asked.owner, picker.asked.title, picker.asked.initialFolder, picker.asked.rootFolder),
        "77, Wo?, " + initial + ", /y");
    EXPECT_EQ(row(browser.InitialDir, browser.RootDir), initial + ", /y");
    EXPECT_EQ(picker.told.take(), "select[" + initial + "]");
    browser.InitialDir.clear();
    browser.BrowseForFolder();
    EXPECT_EQ(row(picker.asked.initialFolder, picker.told.take()), ", ");
}

TEST_F(BrowseForFolderTest, TheChoiceComesBackAsPathAndName) {
    const std::string longest = "/" + std::string(258, 'p') + "\u00E9"; // 260 characters, 261 bytes
    const std::tuple<FolderPicker::Choice, std::string, std::string> cases[] = {
        {{"name", "/some/name"}, "/some/name", "name"},
        {{std::string("ab\0c", 4), "/x"}, "/x", "ab"},
        {{std::string(259, 'n') + "\u00E9\u00E9", longest}, longest, std::string(259, 'n') + "\u00E9"},
        {{"deep", longest + "p"}, "", "deep"},
        {{"Computer", ""}, "", "Computer"},
        {{}, "", ""}}; // cancelled
    for (const auto& [choice, path, name] : cases) {
        picker.user = [&choice = choice] { return choice; };
        EXPECT_EQ(browser.BrowseForFolder(), path);
        EXPECT_EQ(browser.DisplayName(), name);
    }
}

TEST_F(BrowseForFolderTest, EventsMayForbidAndKeepOpen) {
    bool allows = true, keeps = false;
    Connections handlers;
    handlers.push_back(browser.Initialized.connect([&] { picker.told.add("Initialized"); }));
    handlers.push_back(browser.SelectionChanged.connect([&](const std::string& sPath, bool& bAllowOk) {
        picker.told.add(row("Changed[" + sPath + "]", bAllowOk));
        bAllowOk = allows;
    }));
    handlers.push_back(browser.ValidationFailed.connect([&](const std::string& sPath, bool& bKeepOpen) {
        picker.told.add(row("Failed[" + sPath + "]", bKeepOpen));
        bKeepOpen = keeps;
    }));
    browser.InitialDir = "/i";
    picker.user = [&] {
        picker.select("/p");
        allows = false;
        picker.select("");
        EXPECT_EQ(picker.told.take(),
                  "select[/i] Initialized status[/p] Changed[/p], true status[] Changed[], true no-ok");
        for (const bool keep : {false, true}) {
            keeps = keep;
            EXPECT_EQ(picker.confirmMissing("no way"), keep);
            EXPECT_EQ(picker.told.take(), "no-ok status[Path invalid: no way] Failed[no way], false");
        }
        handlers.clear();
        picker.select("/q");
        EXPECT_FALSE(picker.confirmMissing("x"));
        EXPECT_EQ(picker.told.take(), "status[/q] no-ok status[Path invalid: x]");
        return FolderPicker::Choice{};
    };
    browser.BrowseForFolder();
}

TEST_F(BrowseForFolderTest, TheDialogIsSpokenToOnlyWhileItIsShown) {
    const std::string source =
        std::filesystem::read_symlink("/proc/self/exe").filename().string() + ".cBrowseForFolder";
    const auto system = [&](int number) { return row(-2147192504 + number, source, std::strerror(number)); };
    const auto outside = [&] {
        const std::string expected = "26002, " + source + ", Operation invalid unless dialog is displayed.";
        EXPECT_EQ(failure([&] { browser.SetStatus("s"); }), expected);
        EXPECT_EQ(failure([&] { browser.SetFolder("/"); }), expected);
    };
    outside();
    picker.user = [&]() -> FolderPicker::Choice {
        browser.SetStatus("now");
        browser.SetFolder("/a/../b/");
        EXPECT_EQ(picker.told.take(), "status[now] select[/b] focus");
        EXPECT_EQ(failure([&] { browser.SetFolder(""); }), system(ENOENT));
        throw std::runtime_error{"out of the middle"};
    };
    EXPECT_THROW(browser.BrowseForFolder(), std::runtime_error);
    outside();

    browser.RootDir = "/r/.";
    browser.InitialDir = std::string(261, '/') + std::string(260, 'x');
    EXPECT_EQ(failure([&] { browser.BrowseForFolder(); }), system(ENAMETOOLONG));
    EXPECT_EQ(browser.RootDir, "/r"); // it came first
    std::swap(browser.RootDir, browser.InitialDir);
    EXPECT_EQ(failure([&] { browser.BrowseForFolder(); }), system(ENAMETOOLONG));
}

TEST_F(BrowseForFolderTest, SpecialFoldersHaveTheShellsNumbers) {
    EXPECT_EQ(browser.SpecialFolderLocation(0x28), std::getenv("HOME"));
    EXPECT_TRUE(browser.SpecialFolderLocation(0x10).starts_with('/')); // there is always a desktop
    for (const int unknown : {-1, 0x01, 0x24, 0x7FFF}) {
        EXPECT_EQ(browser.SpecialFolderLocation(unknown), "") << unknown;
    }
}

} // namespace
} // namespace pelrath::test
