#include "platform/file_associations.hpp"

#include "platform/files.hpp"
#include "support/temporary_folder.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace pelrath::test {
namespace {

// A desktop of the test's own, which has a program for files of one kind.
struct Associations : testing::Test {
    Associations() {
        for (const char* made : {"data/mime", "data/applications", "config", "a folder"}) {
            std::filesystem::create_directories(folder.file(made));
        }
        (void)folder.write("data/mime/globs2", "50:image/x-paint-pot:*.pot\n50:image/x-left-alone:*.alone\n");
        (void)folder.write(
            "data/applications/brush.desktop",
            "[Desktop Entry]\nType=Application\nName=Brush\nMimeType=image/x-paint-pot;\nExec=\"" +
                folder.file("brush") + "\" --new %f\n");
        (void)folder.write("config/mimeapps.list",
                           "[Default Applications]\nimage/x-paint-pot=brush.desktop\n");
        (void)folder.write("brush", "#!/bin/sh\nprintf '%s|' \"$@\" \"$DESKTOP_STARTUP_ID\" > \"$0.said\"\n");
        std::filesystem::permissions(folder.file("brush"), std::filesystem::perms::owner_all);
        setenv("XDG_DATA_HOME", folder.file("data").c_str(), 1);
        setenv("XDG_DATA_DIRS", folder.file("none").c_str(), 1);
        setenv("XDG_CONFIG_HOME", folder.file("config").c_str(), 1);
    }
    static std::string children() {
        std::string found;
        for (const auto& task : std::filesystem::directory_iterator{"/proc/self/task"}) {
            std::ifstream in{task.path() / "children"};
            found.append(std::istreambuf_iterator<char>{in}, {});
        }
        return found;
    }

    TemporaryFolder folder;
    DesktopAssociations associations;
};

TEST_F(Associations, AProgramIsFoundByTheNameAloneAndGetsThePathAsOneArgument) {
    EXPECT_EQ(associations.executableFor(folder.write("empty.pot", "")), folder.file("brush"));
    EXPECT_EQ(associations.executableFor(folder.write("empty.alone", "")), "");
    EXPECT_EQ(associations.executableFor(folder.write("empty", "")), "");
    const std::string picture = folder.write("a folder/caf\u00E9 \"x\" $y.pot", "no picture");
    associations.open(picture);
    for (int patience = 500; folder.read("brush.said").empty() && patience > 0; --patience) {
        std::this_thread::sleep_for(std::chrono::milliseconds{10});
    }
    EXPECT_EQ(folder.read("brush.said"), "--new|" + picture + "|pelrath_TIME0|");
    for (int patience = 500; !children().empty() && patience > 0; --patience) {
        std::this_thread::sleep_for(std::chrono::milliseconds{10});
    }
    EXPECT_EQ(children(), ""); // not even a dead one
}

} // namespace
} // namespace pelrath::test
