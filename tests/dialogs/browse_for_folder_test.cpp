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

TEST_F(BrowseForFolderTest, PropertiesReachTheDialogAndFoldersBecomeFullPaths) {
    using B = cBrowseForFolder;
    const std::pair<bool B::*, std::uint32_t> cases[] = {{&B::EditBox, 0x10},
                                                         {&B::StatusText, 0x4},
                                                         {&B::FileSystemOnly, 0x9},
                                                         {&B::ValidateEditBox, 0x20},
                                                         {&B::UseNewUI, 0x40}};
    for (const auto& [property, flag] : cases) {
        B fresh{picker};
        fresh.*property = true;
        EXPECT_EQ(fresh.BrowseForFolder(), "");
        EXPECT_EQ(picker.asked.flags, flag);
    }
    const auto asked = [this] {
        browser.BrowseForFolder();
        const FolderPicker::Request& request = picker.asked;
        return row(request.owner, request.title, request.initialFolder, request.rootFolder) + ": " +
               picker.told.take();
    };
    EXPECT_EQ(asked(), "0, Choose Folder, , : ");
    browser.hwndOwner = 77;
    browser.title = "Wo?";
    browser.InitialDir = "a/./b//c/..";
    browser.RootDir = "/x/../y//";
    const std::string initial = std::filesystem::current_path().string() + "/a/b";
    EXPECT_EQ(asked(), "77, Wo?, " + initial + ", /y: select[" + initial + "]");
    EXPECT_EQ(row(browser.InitialDir, browser.RootDir), initial + ", /y");
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
        EXPECT_FALSE(picker.confirmMissing("x"));
        EXPECT_EQ(picker.told.take(), "status[now] select[/b] focus no-ok status[Path invalid: x]");
        for (const bool allowed : {true, false}) {
            const Connection judge = browser.SelectionChanged.connect(
                [&](const std::string&, bool& bAllowOk) { bAllowOk = allowed; });
            picker.select("/c");
            EXPECT_EQ(picker.told.take(), allowed ? "status[/c]" : "status[/c] no-ok");
        }
        EXPECT_EQ(failure([&] { browser.SetFolder(""); }), system(ENOENT));
        throw std::runtime_error{"out of the middle"};
    };
    picker.early = [&] { browser.SetStatus("early"), browser.SetFolder("/early"); };
    for (int time = 0; time < 2; ++time) {
        EXPECT_THROW(browser.BrowseForFolder(), std::runtime_error);
    }
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
