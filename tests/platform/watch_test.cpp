#include "platform/posix/folder_watch.hpp"
#include "support/temporary_folder.hpp"

#include <gtest/gtest.h>

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

TEST(FolderWatchTest, SeesWhateverCanHappenToAFile) {
    TemporaryFolder folder;
    folder.makeFolder("in"), folder.makeFolder("else");
    const std::string file = folder.file("in/a"), link = folder.file("in/link"), other = folder.file("in/b");
    const auto write = [&](const std::string& name) { return [&, name] { (void)folder.write(name, "x"); }; };
    const auto rename = [&] {
        for (int i = 0; i < 10000; ++i) {
            fs::rename(folder.file(i % 2 == 0 ? "in/c" : "in/d"), folder.file(i % 2 == 0 ? "in/d" : "in/c"));
        }
    };
    FolderWatch watch;
    // What happens, whether it is seen, and whether changes need not show from then on.
    const std::tuple<const char*, std::function<void()>, bool, bool> cases[] = {
        {"nothing", [] {}, false, false},
        {"another file is written", write("in/b"), false, false},
        {"it is made", write("in/a"), true, false},
        {"it is written over", write("in/a"), true, false},
        {"another takes its place", [&] { fs::rename(other, file); }, true, false},
        {"it is removed", [&] { folder.remove("in/a"); }, true, false},
        {"it is linked into place", [&] { fs::create_hard_link(folder.file("else/c"), file); }, true, false},
        {"what a link leads to is written", write("else/c"), true, false},
        {"more happens than is kept", rename, true, false},
        {"its folder is renamed", [&] { fs::rename(folder.file("in"), folder.file("out")); }, true, true}};
    (void)folder.write("else/c", ""), (void)folder.write("in/c", "");
    fs::create_symlink(folder.file("else/c"), link);
    watch.follow({file, link});
    for (const auto& [what, act, seen, blind] : cases) {
        act();
        EXPECT_EQ(watch.taken(), seen) << what;
        EXPECT_EQ(watch.isBlind(), blind) << what;
    }
    watch.follow({});
    write("else/c")();
    EXPECT_FALSE(watch.taken() || watch.isBlind());
    watch.follow({"/proc/no/such/folder/a"});
    EXPECT_TRUE(watch.isBlind());
}

} // namespace
} // namespace pelrath::test
