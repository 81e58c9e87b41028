#include "platform/posix/file_copy.hpp"
#include "platform/posix/file_mode.hpp"
#include "platform/posix/scratch_file.hpp"
#include "support/refusals.hpp"
#include "support/temporary_folder.hpp"

#include <functional>
#include <list>
#include <thread>

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

struct RefusedCall {
    Call call;
    int error;
    int spared = 0;
    int times = 1'000'000;
};

/// A disk of another kind than this one, or a bad one.
struct Disk {
    const char* kind;
    std::vector<RefusedCall> refused;
    const char* copying;   // what fails; null: it works
    const char* replacing; // the same
};
const Disk disks[] = {
    {"has all", {}, nullptr, nullptr},
    {"has no nameless files", {{Call::NamelessFile, EOPNOTSUPP}}, nullptr, nullptr},
    {"gives nameless files no name", {{Call::Link, EPERM, 0, 1}}, nullptr, nullptr},
    {"shows no opened files", {{Call::Link, ENOENT, 0, 1}}, nullptr, nullptr},
    {"copies nothing by itself", {{Call::Copy, EXDEV}}, nullptr, nullptr},
    {"refuses a part in between", {{Call::FlushPart, EIO}}, "Device I/O", nullptr},
    {"finds a bad place in between", {{Call::FlushPart, ENODATA, 0, 1}}, "Device I/O", nullptr},
    {"flushes no parts", {{Call::FlushPart, ENOSYS}}, nullptr, nullptr},
    {"has no links", {{Call::Link, ENOSYS}}, nullptr, nullptr},
    {"has no locks", {{Call::NamelessFile, ENOSYS}, {Call::Lock, ENOLCK}}, nullptr, nullptr},
    {"has neither links nor renames that replace nothing",
     {{Call::Link, EOPNOTSUPP}, {Call::NewName, EINVAL}},
     "choose a folder on another disk",
     nullptr},
    {"takes no bytes for certain", {{Call::Flush, EIO, 0, 1}}, "Device I/O", "Device I/O"},
    {"takes no names for certain", {{Call::Flush, EIO, 1}}, "Device I/O", nullptr},
    {"is full", {{Call::Link, ENOSPC}, {Call::Rename, ENOSPC}}, "Disk full", "Disk full"},
    {"keeps a hidden name once", {{Call::NamelessFile, EISDIR}, {Call::Remove, EIO, 0, 1}}, nullptr, nullptr},
};

struct Refusals : std::list<Refusal> {
    explicit Refusals(const std::vector<RefusedCall>& calls) {
        for (const RefusedCall& call : calls) {
            emplace_back(call.call, call.error, call.spared, call.times);
        }
    }
};

/// The work ends with the words, where there are any, while such calls are refused.
void expectFailure(const Disk& disk, const char* words, const std::function<void()>& work) {
    const RuntimeError failure = failureOf([&] {
        const Refusals refusals{disk.refused};
        work();
    });
    EXPECT_NE(failure.description().find(words == nullptr ? "no failure" : words), std::string::npos)
        << disk.kind << ": " << failure.description();
}

TEST(CopyOfAFile, IsWholeUnderAFreeNameOrNotThereAtAll) {
    for (const Disk& disk : disks) {
        const TemporaryFolder folder;
        const std::string file = folder.write("a", "content"), taken = folder.write("a-0", "another's");
        folder.permit("a", 0400);
        expectFailure(disk, disk.copying, [&] {
            FileCopy copy{InputFile{file}, folder.path(), {}};
            EXPECT_FALSE(copy.takeName(taken)) << disk.kind;
            EXPECT_TRUE(copy.takeName(folder.file("a-1"))) << disk.kind;
        });
        EXPECT_EQ(row(folder.read("a-0"), folder.read("a-1"), folder.names().size()),
                  disk.copying == nullptr ? "another's, content, 3" : "another's, , 2")
            << disk.kind;
        EXPECT_TRUE(disk.copying != nullptr || folder.permitted("a-1") == 0400) << disk.kind;
    }
    const TemporaryFolder folder;
    const std::string file = folder.write("a", "x");
    EXPECT_EQ(failureOf([&] { FileCopy{InputFile{file}, folder.file("missing"), {}}; }).number(), 53);
    const auto grow = [&](std::uint64_t, std::uint64_t) { fs::resize_file(file, 9); };
    EXPECT_EQ(failureOf([&] { FileCopy{InputFile{file}, folder.path(), grow}; }).number(), 57);
    EXPECT_EQ(folder.list(), "a");
}

TEST(ReplacedFiles, AreTheOldOnesOrTheNewOnes) {
    const std::string text = "new";
    const std::array<Bytes, 1> pieces{std::as_bytes(std::span{text})};
    for (const Disk& disk : disks) {
        const TemporaryFolder folder;
        (void)folder.write("old", "old content");
        folder.permit("old", 0640);
        for (const char* name : {"old", "none"}) {
            expectFailure(disk, disk.replacing,
                          [&] { replaceFile(folder.file(name), pieces, Durability::Flushed); });
        }
        EXPECT_EQ(row(folder.read("old"), folder.read("none"), folder.names().size()),
                  disk.replacing == nullptr ? "new, new, 2" : "old content, , 1")
            << disk.kind;
        EXPECT_EQ(folder.permitted("old"), 0640U) << disk.kind;
    }
}

TEST(CopyOfAFile, ShowsItsProgressByTimeOnASlowDisk) {
    const TemporaryFolder folder;
    const std::uint64_t size = (std::uint64_t{6} << 20) + 1;
    const std::string file = folder.write("a", "start");
    fs::resize_file(file, size);
    int waits = 0;
    std::uint64_t asked = 0;
    const Answering slow{Call::FlushPart, [&](std::uint64_t bytes) {
                             asked += bytes;
                             if (++waits % 2 == 0) // of two calls each
                                 std::this_thread::sleep_for(std::chrono::nanoseconds{bytes * 100});
                             return 0;
                         }};
    const Refusal ofSharedBlocks{Call::NamelessFile, EOPNOTSUPP};
    std::vector<std::uint64_t> seen;
    FileCopy copy{InputFile{file}, folder.path(), [&](std::uint64_t done, std::uint64_t total) {
                      EXPECT_EQ(total, size);
                      EXPECT_EQ(folder.names().size(), 2U);
                      seen.push_back(done);
                  }};
    ASSERT_TRUE(copy.takeName(folder.file("b")));
    EXPECT_GE(seen.size(), 6U); // ten a second, or more on a busy machine
    EXPECT_TRUE(seen.front() == 0 && seen.back() == size && std::ranges::is_sorted(seen));
    EXPECT_GT(asked, size) << "what was begun is waited for";
    EXPECT_TRUE(folder.read("b") == folder.read("a"));
}

TEST(ReadOnlyFiles, AreToldFromThoseThatNobodyHereCanWrite) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a", "x");
    const struct {
        unsigned mode;
        std::vector<RefusedCall> refused;
        const char* why;
    } cases[] = {
        {0600, {}, ""},
        {0400, {{Call::OpenToWrite, EACCES}}, ""}, // the attribute can be taken away
        {0600, {{Call::OpenToWrite, ETXTBSY}}, ""},
        {0400, {{Call::OpenToWrite, EROFS}}, " is on a file system that can only be read"},
        {0400, {{Call::OpenToWrite, EACCES}, {Call::AskPlace, EROFS}}, " is on a file system that can only"},
        {0400, {{Call::OpenToWrite, EPERM}}, " is marked"},
        {0604, {{Call::OpenToWrite, EACCES}, {Call::OpenAsOwner, EPERM}}, " belongs to another user"},
        {0600, {{Call::OpenToWrite, EACCES}}, " may not be written by rules"}};
    for (const auto& [mode, refused, why] : cases) {
        folder.permit("a", mode);
        const Refusals refusals{refused};
        const std::string said = whyNotWritable(InputFile{path});
        EXPECT_TRUE(*why == '\0' ? said.empty() : said.starts_with(path + why)) << said;
    }
    const Refusal badDisk{Call::Flush, EIO};
    EXPECT_EQ(failureOf([&] { setFileMode(InputFile{path}, 0600); }).number(), 57);
}

TEST(FileForAWhile, IsGoneBeforeAndAfter) {
    const TemporaryFolder folder;
    folder.makeFolder("in");
    (void)folder.write("in/a", "old");
    {
        const ScratchFile scratch{folder.file("in/a")};
        EXPECT_TRUE(folder.names("in").empty());
        (void)folder.write("in/a", "new");
        fs::rename(folder.file("in"), folder.file("moved"));
    }
    EXPECT_TRUE(folder.names("moved").empty());
    ScratchFile told{folder.file("moved/b")};
    folder.makeFolder("moved/b");
    EXPECT_NE(failureOf([&] { told.remove(); }).description().find("by hand: " + told.path()),
              std::string::npos);
}

} // namespace
} // namespace pelrath::test
