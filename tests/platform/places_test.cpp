#include "platform/files.hpp"
#include "platform/folder_lock.hpp"
#include "platform/leftovers.hpp"
#include "platform/runtime_error.hpp"
#include "platform/working_folder.hpp"
#include "support/other_program.hpp"
#include "support/refusals.hpp"
#include "support/temporary_folder.hpp"

#include <optional>

#include <sys/stat.h>

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

struct Places : testing::Test {
    Places() { fs::create_directories(folder.file("program")), working = folder.file("program"); }

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
    fs::create_directory(folder.file("program/tmp1.dds"));
    ASSERT_EQ(chmod(folder.write("program/tmp2.dds", "x").c_str(), 0400), 0);
    EXPECT_EQ(row(placeOf("tmp.dds"), placeOf("tmp1.dds"), placeOf("tmp2.dds")), "program, own, own");
    const fs::path before = fs::path{working.pathFor("tmp1.dds")}.parent_path();
    EXPECT_EQ(fs::status(before).permissions(), fs::perms::owner_all);
    fs::remove_all(before); // as a cleaner does during a long run
    const std::string path = working.pathFor("tmp1.dds");
    replaceFile(path, {}, Durability::Scratch);
    EXPECT_EQ(working.removeTemporaryFiles().size(), 1U) << "the folder in a file's place";
    EXPECT_EQ(row(folder.names("own").size(), folder.names("program").size()), "0, 1");
    fs::remove(folder.file("own"));
    EXPECT_EQ(placeOf("tmp1.dds"), "program") << "nowhere else";
}

TEST_F(Places, TwoProgramsNeverShareTemporaryFiles) {
    std::optional<OtherProgram> other{working.path()};
    const std::string foreign = folder.write("program/tmp.dds", "another's");
    EXPECT_EQ(row(placeOf("tmp.dds"), working.removeTemporaryFiles().size()), "own, 0");
    EXPECT_TRUE(fs::exists(foreign));
    fs::remove_all(folder.file("own"));
    EXPECT_EQ(placeOf("tmp.dds"), "refused");
    other.reset(); // dies
    EXPECT_EQ(row(placeOf("tmp.dds"), working.removeTemporaryFiles().size()), "program, 0");
    EXPECT_FALSE(fs::exists(foreign));
    WorkingFolder second;
    second = working.path();
    EXPECT_FALSE(second.isOurs());
}

TEST_F(Places, AFolderIsForOneProgramAtATime) {
    fs::create_directory(folder.file("out"));
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

/// Entries of a folder, some of which a dead program left, and what the folder holds after the clearing.
TEST_F(Places, OnlyWhatADeadProgramLeftIsRemoved) {
    fs::create_directory(folder.file("out"));
    const auto put = [&](const std::string& name) { return folder.write(name, "x"); };
    for (const char* dead :
         {"out/.pelrath-abcDEF", "out/.pelrath-123456", "out/wall-4x4_tmppelrath.dds",
          "out/x-y-64x1_tmppelrath.dds", "own/~pelrath-abcdef.bmp", "own/~pelrath-abcdef"}) {
        ASSERT_EQ(chmod(put(dead).c_str(), 0400), 0);
    }
    fs::create_directories(folder.file("own/pelrath-abcdef"));
    fs::create_directories(folder.file("own/pelrath-filled"));
    fs::create_directories(folder.file("own/pelrath-public"));
    fs::create_directories(folder.file("own/pelrath-living"));
    for (const char* name : {"abcdef", "filled", "living"}) {
        fs::permissions(folder.file(std::string{"own/pelrath-"} + name), fs::perms::owner_all);
        (void)put(std::string{"own/pelrath-"} + name + "/tmp.dds");
    }
    (void)put("own/pelrath-abcdef/.pelrath-abcdef");
    (void)put("own/pelrath-filled/notes");
    (void)put("own/pelrath-public/tmp.dds");
    for (const char* other :
         {"out/.pelrath-abcde", "out/.pelrath-abc_ef", "out/pelrath-abcdef", "out/wall_tmppelrath.dds",
          "out/wall-4x_tmppelrath.dds", "out/-x4_tmppelrath.dds", "out/4x4_tmppelrath.dds",
          "out/wall-4x4_tmppelrath.dds.bak", "own/~pelrath-abc.bmp", "own/~abcdef.bmp"}) {
        (void)put(other);
    }
    fs::create_directory(folder.file("out/.pelrath-folder"));
    for (const char* link : {"out/.pelrath-linked", "out/linked-4x4_tmppelrath.dds", "own/~pelrath-linked"}) {
        fs::create_symlink(put("linked"), folder.file(link));
    }
    fs::create_directory_symlink(folder.file("own/pelrath-public"), folder.file("own/pelrath-linked"));
    const OtherProgram writing{put("out/.pelrath-living")}, looking{put("own/~pelrath-living.tga")},
        running{folder.file("own/pelrath-living")};
    const auto clear = [&] {
        removeHiddenLeftovers(folder.file("out"));
        removeBuiltLeftovers({folder.file("out"), working});
        removeTemporaryLeftovers();
    };
    const auto before = std::pair{folder.names("out"), folder.names("own")};
    {
        const Refusal noLocks{Call::Lock, ENOLCK};
        clear();
        EXPECT_EQ((std::pair{folder.names("out"), folder.names("own")}), before);
    }
    clear();
    EXPECT_EQ(folder.names("out"),
              (std::vector<std::string>{"-x4_tmppelrath.dds", ".pelrath-abc_ef", ".pelrath-abcde",
                                        ".pelrath-folder", ".pelrath-linked", ".pelrath-living",
                                        "4x4_tmppelrath.dds", "linked-4x4_tmppelrath.dds", "pelrath-abcdef",
                                        "wall-4x4_tmppelrath.dds.bak", "wall-4x_tmppelrath.dds",
                                        "wall_tmppelrath.dds"}));
    EXPECT_EQ(folder.names("own"),
              (std::vector<std::string>{"pelrath-filled", "pelrath-linked", "pelrath-living",
                                        "pelrath-public", "~abcdef.bmp", "~pelrath-abc.bmp",
                                        "~pelrath-linked", "~pelrath-living.tga"}));
    for (const char* kept :
         {"own/pelrath-filled/notes", "own/pelrath-living/tmp.dds", "own/pelrath-public/tmp.dds", "linked"}) {
        EXPECT_EQ(folder.read(kept), "x") << kept;
    }
}

} // namespace
} // namespace pelrath::test
