#include "platform/files.hpp"
#include "platform/folder_lock.hpp"
#include "platform/runtime_error.hpp"
#include "platform/working_folder.hpp"
#include "support/other_program.hpp"
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

} // namespace
} // namespace pelrath::test
