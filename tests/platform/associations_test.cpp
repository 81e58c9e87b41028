#include "platform/file_associations.hpp"

#include "platform/files.hpp"
#include "support/temporary_folder.hpp"
#include "support/values.hpp"

#include <functional>
#include <thread>

namespace pelrath::test {
namespace {

std::string children() {
    std::string found;
    for (const auto& task : std::filesystem::directory_iterator{"/proc/self/task"}) {
        std::ifstream in{task.path() / "children"};
        found.append(std::istreambuf_iterator<char>{in}, {});
    }
    return found;
}

void waitUntil(const std::function<bool()>& done) {
    for (int patience = 500; !done() && patience > 0; --patience) {
        std::this_thread::sleep_for(std::chrono::milliseconds{10});
    }
}

TEST(Associations, AProgramIsFoundByTheNameAloneAndGetsThePathAsOneArgument) {
    // A desktop of the test's own, with programs for three kinds of files and none for a fourth.
    const TemporaryFolder folder;
    std::string kinds = "50:image/x-alone:*.alone\n", defaults = "[Default Applications]\n";
    for (const char* made : {"data/mime", "data/applications", "config", "a folder"}) {
        std::filesystem::create_directories(folder.file(made));
    }
    for (const auto& [kind, start] : {std::pair{"pot", "Exec=\"" + folder.file("brush") + "\" --new %f\n"},
                                      {"lost", "Exec=\"" + folder.file("orphan") + "\" %f\n"},
                                      {"bus", "DBusActivatable=true\n"}}) {
        const std::string type = std::string{"image/x-"} + kind, entry = std::string{kind} + ".desktop";
        kinds += "50:" + type + ":*." + kind + "\n";
        defaults += type + "=" + entry + "\n";
        (void)folder.write("data/applications/" + entry,
                           "[Desktop Entry]\nType=Application\nName=Any\nMimeType=" + type + ";\n" + start);
    }
    (void)folder.write("data/mime/globs2", kinds);
    (void)folder.write("config/mimeapps.list", defaults);
    const std::pair<const char*, std::string> programs[] = {
        {"brush", "#!/bin/sh\nprintf '%s|' \"$@\" \"$DESKTOP_STARTUP_ID\" > \"$0.said\"\n"},
        {"orphan", "#! " + folder.file("gone") + " -x\n"}};
    for (const auto& [program, text] : programs) {
        std::filesystem::permissions(folder.write(program, text), std::filesystem::perms::owner_all);
    }
    setenv("XDG_DATA_HOME", folder.file("data").c_str(), 1);
    setenv("XDG_DATA_DIRS", folder.file("none").c_str(), 1);
    setenv("XDG_CONFIG_HOME", folder.file("config").c_str(), 1);

    DesktopAssociations associations;
    const std::pair<const char*, std::string> cases[] = {
        {"empty.pot", folder.file("brush")},
        {"empty.bus", folder.file("data/applications/bus.desktop")},
        {"empty.alone", ""},
        {"empty", ""}};
    for (const auto& [name, program] : cases) {
        EXPECT_EQ(associations.executableFor(folder.write(name, "")), program);
    }
    const RuntimeError failure = failureOf([&] { associations.open(folder.file("picture.lost")); });
    EXPECT_EQ(failure.number(), 53);
    EXPECT_NE(failure.description().find("its interpreter " + folder.file("gone") + " cannot be executed"),
              std::string::npos)
        << failure.description();
    const std::string picture = folder.write("a folder/caf\u00E9 \"x\" $y.pot", "no picture");
    associations.open(picture);
    waitUntil([&] { return !folder.read("brush.said").empty(); });
    EXPECT_EQ(folder.read("brush.said"), "--new|" + picture + "|pelrath_TIME0|");
    waitUntil([] { return children().empty(); });
    EXPECT_EQ(children(), ""); // not even a dead one
}

} // namespace
} // namespace pelrath::test
