#include "platform/file_associations.hpp"

#include "platform/files.hpp"
#include "support/temporary_folder.hpp"
#include "support/values.hpp"

namespace pelrath::test {
namespace {

// A desktop of the test's own, which has a program for files of one kind.
struct Associations : testing::Test {
    Associations() {
        for (const char* made : {"data/mime", "data/applications", "config", "a folder"}) {
            std::filesystem::create_directories(folder.file(made));
        }
        (void)folder.write("data/mime/globs2",
                           "50:image/x-pot:*.pot\n50:image/x-left-alone:*.alone\n"
                           "50:image/x-lost:*.lost\n50:image/x-bus:*.bus\n50:image/x-text:*.text\n");
        (void)folder.write("config/mimeapps.list", "[Default Applications]\n");
        associate("pot", "Exec=\"" + folder.file("brush") + "\" --new %f\n");
        associate("lost", "Exec=\"" + folder.file("orphan") + "\" %f\n");
        associate("text", "Exec=\"" + folder.file("prose") + "\" %f\n");
        associate("bus", "DBusActivatable=true\n");
        (void)folder.write("brush", "#!/bin/sh\nprintf '%s|' \"$@\" \"$DESKTOP_STARTUP_ID\" > \"$0.said\"\n");
        (void)folder.write("orphan", "#! " + folder.file("gone") + " -x\n");
        (void)folder.write("prose", "exit 126\n");
        for (const char* program : {"brush", "orphan", "prose"}) {
            std::filesystem::permissions(folder.file(program), std::filesystem::perms::owner_all);
        }
        setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + folder.file("none")).c_str(), 1);
        setenv("XDG_DATA_HOME", folder.file("data").c_str(), 1);
        setenv("XDG_DATA_DIRS", folder.file("none").c_str(), 1);
        setenv("XDG_CONFIG_HOME", folder.file("config").c_str(), 1);
    }
    void associate(const std::string& kind, const std::string& start) const {
        (void)folder.write("data/applications/" + kind + ".desktop",
                           "[Desktop Entry]\nType=Application\nName=Any\nMimeType=image/x-" + kind + ";\n" +
                               start);
        (void)folder.write("config/mimeapps.list", folder.read("config/mimeapps.list") + "image/x-" + kind +
                                                       "=" + kind + ".desktop\n");
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
    EXPECT_EQ(children(), ""); // not even a dead one
}

} // namespace
} // namespace pelrath::test
