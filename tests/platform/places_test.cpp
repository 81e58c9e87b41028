#include "platform/posix/files.hpp"
#include "platform/posix/folder_lock.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/working_folder.hpp"
#include "platform/runtime_error.hpp"
#include "support/refusals.hpp"
#include "support/temporary_folder.hpp"

#include <optional>

#include <fcntl.h>

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

/// Another program that has a file or folder locked for as long as it lives.
class OtherProgram {
public:
    explicit OtherProgram(const std::string& path) : opened_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        EXPECT_EQ(tryLock(opened_.get(), LockKind::Exclusive), LockAnswer::Held) << path;
    }

private:
    FileHandle opened_;
};

struct Places : testing::Test {
    Places() { folder.makeFolder("program"), working = folder.file("program"); }

    /// Where a temporary file goes: "program", "own" for a private folder, or "refused".
    [[nodiscard]] std::string placeOf(const std::string& name) const {
        std::string path;
        const RuntimeError failure = failureOf([&] { path = working.pathFor(name); });
        if (failure.number() != 0) return "refused";
        EXPECT_EQ(fs::path{path}.filename(), name);
        return fs::relative(path, folder.path()).begin()->string();
    }

    TemporaryFolder folder;
    TemporaryFilesIn own{folder.file("own")};
    WorkingFolder working;
};

TEST_F(Places, TemporaryFilesAreInTheProgramFolderWhereTheyCanBePutThere) {
    folder.makeFolder("program/tmp1.dds");
    (void)folder.write("program/tmp2.dds", "x");
    folder.permit("program/tmp2.dds", 0400);
    EXPECT_EQ(row(placeOf("tmp.dds"), placeOf("tmp1.dds"), placeOf("tmp2.dds")), "program, own, own");
    {
        const Refusal noLocks{Call::Lock, ENOLCK};
        EXPECT_EQ(placeOf("tmp.dds"), "own") << "another could be at work there";
    }
    const fs::path before = fs::path{working.pathFor("tmp1.dds")}.parent_path();
    EXPECT_EQ(fs::status(before).permissions(), fs::perms::owner_all);
    fs::remove_all(before); // as a cleaner does during a long run
    const std::string path = working.pathFor("tmp1.dds");
    replaceFile(path, {}, Durability::Scratch);
    EXPECT_EQ(working.removeTemporaryFiles().size(), 1U) << "the folder in a file's place";
    EXPECT_EQ(row(folder.names("own").size(), folder.names("program").size()), "0, 1");
    folder.remove("own");
    EXPECT_EQ(placeOf("tmp1.dds"), "program") << "nowhere else";
}

TEST_F(Places, TwoProgramsNeverShareTemporaryFiles) {
    std::optional<OtherProgram> other{working.path()};
    const std::string foreign = folder.write("program/tmp.dds", "another's");
    EXPECT_EQ(row(placeOf("tmp.dds"), working.removeTemporaryFiles().size()), "own, 0");
    EXPECT_TRUE(fs::exists(foreign));
    folder.remove("own");
    EXPECT_EQ(placeOf("tmp.dds"), "refused");
    other.reset(); // dies
    EXPECT_EQ(row(placeOf("tmp.dds"), working.removeTemporaryFiles().size()), "program, 0");
    EXPECT_FALSE(fs::exists(foreign));
    WorkingFolder second;
    second = working.path();
    EXPECT_FALSE(second.isOurs());
}

TEST_F(Places, AFolderIsForOneProgramAtATime) {
    folder.makeFolder("out");
    const auto refusal = [&](const char* name) {
        return failureOf([&] { const FolderLock lock{folder.file(name), working}; }).description();
    };
    {
        const OtherProgram other{folder.file("out")};
        EXPECT_NE(refusal("out").find("/out is in use by another"), std::string::npos);
        EXPECT_EQ(refusal("none"), "no failure");
    }
    EXPECT_EQ(refusal("out"), "no failure");
    const FolderLock lock{folder.file("out"), working}, ofItself{working.path(), working};
    EXPECT_TRUE(lock.isCertain() && ofItself.isCertain());
    EXPECT_NE(refusal("out"), "no failure");
}

TEST_F(Places, OnlyWhatADeadProgramLeftIsRemoved) {
    const auto dead = {"out/.pelrath-abcDEF",         "out/.pelrath-123456",
                       "out/wall-4x4_tmppelrath.dds", "out/x-y-64x1_tmppelrath.dds",
                       "own/~pelrath-abcdef.bmp",     "own/~pelrath-abcdef",
                       "own/pelrath-abcdef/tmp.dds",  "own/pelrath-abcdef/.pelrath-abcdef"};
    const auto alive = {"out/.pelrath-living", "own/~pelrath-living.tga", "own/pelrath-living/tmp.dds"};
    const auto ofOthers = {"out/.pelrath-abcde",
                           "out/.pelrath-abcdefg",
                           "out/.pelrath-abc_ef",
                           "out/pelrath-abcdef",
                           "out/wall_tmppelrath.dds",
                           "out/wall-4x_tmppelrath.dds",
                           "out/-x4_tmppelrath.dds",
                           "out/4x4_tmppelrath.dds",
                           "out/wall-4x4_tmppelrath.dds.bak",
                           "own/~pelrath-abc.bmp",
                           "own/~abcdef.bmp",
                           "own/pelrath-filled/notes",
                           "own/pelrath-public/tmp.dds",
                           "linked"};
    for (const char* name : {"out/.pelrath-folder", "own/pelrath-abcdef", "own/pelrath-filled",
                             "own/pelrath-living", "own/pelrath-public"}) {
        folder.makeFolder(name);
        if (!std::string_view{name}.ends_with("public")) folder.permit(name, 0700);
    }
    for (const auto& names : {dead, alive, ofOthers}) {
        for (const char* name : names) {
            (void)folder.write(name, "x");
            folder.permit(name, 0400);
        }
    }
    for (const char* link : {"out/.pelrath-linked", "out/linked-4x4_tmppelrath.dds", "own/~pelrath-linked"}) {
        fs::create_symlink(folder.file("linked"), folder.file(link));
    }
    fs::create_directory_symlink(folder.file("own/pelrath-public"), folder.file("own/pelrath-linked"));
    const OtherProgram writing{folder.file("out/.pelrath-living")},
        looking{folder.file("own/~pelrath-living.tga")}, running{folder.file("own/pelrath-living")};
    const auto clear = [&] {
        removeHiddenLeftovers(folder.file("out"));
        removeBuiltLeftovers({folder.file("out"), working});
        removeTemporaryLeftovers();
    };
    const auto before = folder.list("out") + folder.list("own");
    (Refusal{Call::Lock, ENOLCK}, clear());
    (Refusal{Call::User, 1}, clear()); // somebody else's program
    EXPECT_EQ(folder.list("out") + folder.list("own"), before);
    clear();
    for (const auto& names : {alive, ofOthers}) {
        for (const char* name : names) {
            EXPECT_EQ(folder.read(name), "x") << name;
        }
    }
    // Beside these, the folders and the links.
    EXPECT_EQ(row(folder.names("out").size(), folder.list("own")),
              "13, pelrath-filled pelrath-linked pelrath-living pelrath-public ~abcdef.bmp ~pelrath-abc.bmp "
              "~pelrath-linked ~pelrath-living.tga");
}

} // namespace
} // namespace pelrath::test
