#include "platform/posix/desktop_associations.hpp"

#include "platform/posix/files.hpp"
#include "support/temporary_folder.hpp"
#include "support/values.hpp"

namespace pelrath::test {
namespace {

// A desktop of the test's own, which has a program for files of one kind.
struct Associations : testing::Test {
    Associations() {
        for (const char* made : {"data/mime", "data/applications", "config", "a folder"}) {
            folder.makeFolder(made);
        }
        std::string kinds, defaults = "[Default Applications]\n";
        const auto know = [&](const std::string& kind, const std::string& start) {
            kinds += "50:image/x-" + kind + ":*." + kind + "\n";
            if (start.empty()) return;
            defaults += "image/x-" + kind + "=" + kind + ".desktop\n";
            (void)folder.write("data/applications/" + kind + ".desktop",
                               "[Desktop Entry]\nType=Application\nName=Any\nMimeType=image/x-" + kind +
                                   ";\n" + start + "\n");
        };
        const auto program = [&](const std::string& name, const std::string& script) {
            (void)folder.write(name, script);
            folder.permit(name, 0700);
            return "Exec=\"" + folder.file(name) + "\"";
        };
        know("pot",
             program("brush", "#!/bin/sh\nprintf '%s|' \"$@\" \"$DESKTOP_STARTUP_ID\" > \"$0.said\"\n") +
                 " --new %f");
        know("lost", program("orphan", "#! " + folder.file("gone") + " -x\n") + " %f");
        know("text", program("prose", "exit 126\n") + " %f");
        know("bus", "DBusActivatable=true");
        know("alone", "");
        defaults += "inode/directory=pot.desktop\n";
        (void)folder.write("data/mime/globs2", kinds);
        (void)folder.write("config/mimeapps.list", defaults);
        setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + folder.file("none")).c_str(), 1);
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
    EXPECT_EQ(associations.executableFor(folder.write("empty.bus", "")),
              folder.file("data/applications/bus.desktop"));
    for (const char* name : {"picture.lost", "picture.text", "picture.bus"}) {
        const RuntimeError failure = failureOf([&] { associations.open(folder.file(name)); });
        EXPECT_EQ(failure.number(), 53) << name;
        EXPECT_NE(failure.description().find("or open " + folder.file(name)), std::string::npos);
    }
    const std::string picture = folder.write("a folder/caf\u00E9 \"x\" $y.pot", "no picture");
    associations.open(picture);
    EXPECT_EQ(folder.read("brush.said"), "--new|" + picture + "|pelrath_TIME0|");
    associations.showInFolder({picture}); // where no file manager answers by message
    EXPECT_EQ(folder.read("brush.said"), "--new|" + folder.file("a folder") + "|pelrath_TIME0|");
    EXPECT_EQ(children(), ""); // not even a dead one
}

} // namespace
} // namespace pelrath::test
