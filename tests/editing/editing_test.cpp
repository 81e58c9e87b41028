#include "editing/save_bar.hpp"
#include "support/fake_watch.hpp"
#include "support/temporary_folder.hpp"

#include <gtest/gtest.h>

namespace pelrath::test {
namespace {

using editing::EditedFile;

std::string picture(char colour) {
    std::string bytes(18 + 4 * 4 * 3, colour);
    return bytes.replace(0, 18, std::string("\0\0\2\0\0\0\0\0\0\0\0\0\4\0\4\0\x18\0", 18));
}

/// Files a, b and c of an open archive's textures, all of them given to an editor.
struct Editing : testing::Test {
    Editing() {
        session.archivePath = "/x.cdds";
        for (const char* name : {"a", "b", "c"}) {
            session.archive.textures.push_back(
                {std::string{name} + ".tga", "DXT5", 1, {{"DXT5", 0, 16, 4, 4}}});
            save(name, picture('0'));
            list.add(edited(name));
        }
        settle();
    }
    EditedFile edited(const std::string& name) {
        session.selectedTexture = static_cast<std::int16_t>(name[0] - 'a');
        return EditedFile::ofChosen(session, {folder.file(name), ImageFileKind::Tga, 0});
    }
    // The system's clock may stand still between two writes.
    void save(const std::string& name, const std::string& bytes) {
        (void)folder.write(name, bytes);
        std::filesystem::last_write_time(folder.file(name), clock += std::chrono::seconds{1});
    }
    void tick() {
        for (Timer* timer : {&list.settling, &list.results}) {
            if (timer->running()) timer->tick.emit();
        }
    }
    // The time that a file needs, and far more: nothing may go on for ever.
    void settle() {
        watch.happened();
        for (int i = 0; i < 10; ++i) {
            tick();
        }
        EXPECT_FALSE(list.settling.running() || list.results.running());
    }
    std::string said() { return bar.strip.visible() ? bar.text.caption() : ""; }

    TemporaryFolder folder;
    std::filesystem::file_time_type clock = std::filesystem::file_time_type::clock::now();
    Session session;
    CalledWatch watch;
    ImmediateWork work;
    editing::WatchList list{watch, work};
    editing::SaveBar bar{list, session};
};

TEST_F(Editing, TellsWhatWasSavedOnceItIsWhole) {
    const std::string whole = picture('1'), half = whole.substr(0, 40);
    const auto writes = [this](const std::string& bytes) { return [=, this] { save("a", bytes); }; };
    const auto replaces = [&] {
        save("other", whole), std::filesystem::rename(folder.file("other"), folder.file("a"));
    };
    const auto removes = [this] { folder.remove("a"); };
    const auto ignores = [this] { bar.ignore.press(); };
    const auto inTheMiddle = [&] {
        save("a", half), watch.happened(), tick(), tick(), save("a", whole), tick();
    };
    const auto rewrites = [&] { save("a", whole), list.rewritten(edited("a")); };
    const std::string told = "a was saved";
    // What is done, one thing after another with time between them; what is said at the end.
    const std::tuple<const char*, std::vector<std::function<void()>>, std::string> cases[] = {
        {"nothing", {}, ""},
        {"saved", {writes(whole)}, told},
        {"saved twice", {writes(whole), writes(picture('2'))}, told},
        {"another file takes its place", {replaces}, told},
        {"half a file", {writes(half)}, ""},
        {"half a file, then the whole", {writes(half), writes(whole)}, told},
        {"still being written while it is looked at", {inTheMiddle}, told},
        {"a whole file, then half of one", {writes(whole), writes(half)}, ""},
        {"the same bytes", {writes(picture('0'))}, ""},
        {"taken back", {writes(whole), writes(picture('0'))}, ""},
        {"removed", {writes(whole), removes}, ""},
        {"removed and made again", {removes, writes(whole)}, told},
        {"written by the program itself", {rewrites}, ""},
        {"written by the program itself over what was saved", {writes(whole), rewrites}, ""},
        {"ignored", {writes(whole), ignores}, ""},
        {"ignored and saved as it was", {writes(whole), ignores, writes(whole)}, ""},
        {"ignored and saved anew", {writes(whole), ignores, writes(picture('2'))}, told}};
    for (const auto& [what, acts, expected] : cases) {
        save("a", picture('0'));
        list.rewritten(edited("a"));
        settle();
        for (const auto& act : acts) {
            act(), settle();
        }
        EXPECT_EQ(said(), expected) << what;
    }
}

TEST_F(Editing, StepsThroughSeveralFilesAndKeepsToTheOneThatIsShown) {
    const auto saves = [this](const char* name, char colour) { save(name, picture(colour)), settle(); };
    // What is done, and what is said then.
    const std::tuple<std::function<void()>, const char*> steps[] = {
        {[&] { save("b", picture('9')), watch.happened(), tick(); }, ""}, // it may go on changing
        {[&] { saves("b", '1'); }, "b was saved"},
        {[&] { saves("a", '1'), saves("c", '1'); }, "b was saved (and 2 more)"},
        {[&] { bar.next.press(); }, "a was saved (and 2 more)"},
        {[&] { saves("b", '2'); }, "a was saved (and 2 more)"},
        {[&] { session.archivePath = "/y.cdds", bar.refresh(); }, ""},
        {[&] { saves("c", '3'); }, ""},
        {[&] { session.archivePath = "/x.cdds", bar.refresh(); }, "b was saved (and 2 more)"},
        {[&] { session.archive.textures[1].name = "another", bar.refresh(); }, "a was saved (and 1 more)"},
        {[&] { bar.previous.press(); }, "c was saved (and 1 more)"},
        {[&] { bar.tell("Something."), saves("a", '4'); }, "Something."},
        {[&] { bar.next.press(), bar.ignore.press(); }, "Something."},
        {[&] { bar.farewell.tick.emit(); }, "c was saved (and 1 more)"},
        {[&] { bar.ignore.press(), bar.ignore.press(); }, ""}};
    for (std::size_t i = 0; i < std::size(steps); ++i) {
        std::get<0>(steps[i])();
        EXPECT_EQ(said(), std::get<1>(steps[i])) << "step " << i;
    }
}

} // namespace
} // namespace pelrath::test
