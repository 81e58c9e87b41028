#include "opening/command_line.hpp"
#include "opening/dropped_archive.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

using Words = std::vector<std::string>;

TEST(CommandLineTest, NamesOneArchiveOrIsToldWhatItIs) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a b.cdds", ""), odd = folder.write("caf\xE9.cdds", "");
    folder.makeFolder("x:");
    const std::string colon = folder.write("x://y.cdds", "");
    const std::string uri = "file://" + folder.path() + "/a%20b.cdds";
    // What is said, and the words that say it, and the begin of the answer: 0 runs, 1 prints, 2 refuses.
    const std::tuple<const char*, Words, std::string> cases[] = {
        {"nothing", {}, "0, , "},
        {"a path", {path}, "0, " + path + ", "},
        {"a URI", {uri}, "0, " + path + ", "},
        {"a URI of this machine by its name", {"file://localhost" + uri.substr(7)}, "0, " + path + ", "},
        {"a path behind what the toolkit takes", {"-session", "--help", "-reverse", path}, "0, " + path},
        {"help", {"--help", "x", "y"}, "1, , Usage: pelrath [OPTION] [ARCHIVE]\n"},
        {"help in short", {path, "-h"}, "1, , Usage: "},
        {"the version", {"--version"}, "1, , Pelrath 1.0-1\n"},
        {"an option there is none of", {"--folder", path}, "2, , No such option: --folder. See "},
        {"a file that is named like an option", {"--", "--help"}, "2, , No such file: "},
        {"one that is named as what ends them", {"--", "--"}, "2, , No such file: --"},
        {"a file below a folder that ends in a colon", {colon}, "0, " + colon + ", "},
        {"two archives", {path, "b\n\xFF"}, "2, , One archive too many: b\uFFFD\uFFFD. Please start"},
        {"no file", {path + "x"}, "2, , No such file: " + path + "x"},
        {"an empty word", {""}, "2, , No such file: "},
        {"a folder", {folder.path()}, "2, , A folder, no archive: " + folder.path()},
        {"a file elsewhere", {"file://far/a.cdds"}, "2, , Not a file of this machine: file://far/a.cdds"},
        {"a page", {"https://localhost/a.cdds"}, "2, , Not a file of this machine: https:"},
        {"a name that is no text", {odd}, "2, , Not a name in UTF-8: " + folder.file("caf\uFFFD.cdds. Pl")}};
    for (const auto& [what, words, begin] : cases) {
        const CommandLine line = readCommandLine(words);
        const std::string answer = row(static_cast<int>(line.wish), line.archive, line.text);
        EXPECT_EQ(answer.substr(0, begin.size()), begin) << what;
    }
    const Words there{"a b.cdds"};
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(readCommandLine(there).archive, std::filesystem::current_path().string() + "/a b.cdds");
    std::filesystem::current_path(before);
}

TEST(DroppedArchive, IsOneFileOfThisMachineWithTheExtension) {
    const std::tuple<const char*, Words, const char*> cases[] = {
        {"an archive", {"file:///x/a%20%C3%A9.cdds"}, "/x/a \u00E9.cdds"},
        {"one in capitals", {"file:///A.CDDS"}, "/A.CDDS"},
        {"nothing", {}, "none"},
        {"two", {"file:///a.cdds", "file:///b.cdds"}, "none"},
        {"a picture", {"file:///a.bmp"}, "none"},
        {"a file of another machine", {"file://far/a.cdds"}, "none"},
        {"one of a server", {"https://far/a.cdds"}, "none"},
        {"a name that is no text", {"file:///caf%E9.cdds"}, "none"}};
    for (const auto& [what, uris, path] : cases) {
        EXPECT_EQ(droppedArchive(uris).value_or("none"), path) << what;
    }
}

} // namespace
} // namespace pelrath::test
