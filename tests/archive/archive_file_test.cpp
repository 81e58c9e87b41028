#include "archive/archive_file.hpp"

#include "archive_builder.hpp"
#include "support/temporary_folder.hpp"

namespace pelrath::test {
namespace {

namespace fs = std::filesystem;

TEST(ArchiveFileInUse, IsTheOneThatWasReadAndNoOther) {
    const TemporaryFolder folder;
    ArchiveBuilder builder{CddsType::TypeCdds, {{"a.bmp", "DXT1", {{4, 4, "12345678"}}}}};
    const std::string bytes = builder.build(), path = folder.file("a.cdds");
    const std::string otherLevel = bytes.substr(0, bytes.size() - 1) + "9";
    builder.textures[0].name = "b.bmp";
    const std::string otherName = builder.build();
    const auto writes = [&](const std::string& content, int secondsLater = 0) {
        return [&folder, &path, content, secondsLater] {
            const fs::file_time_type before = fs::last_write_time(path);
            (void)folder.write("a.cdds", content);
            fs::last_write_time(path, before + std::chrono::seconds{secondsLater});
        };
    };
    const auto twinComes = [&] {
        fs::last_write_time(folder.write("twin", bytes), fs::last_write_time(path));
        fs::rename(folder.file("twin"), path);
    };
    const char* const changed = "has been changed by another";
    const char* const replaced = "another file has taken the place of ";
    // What happens to it behind the read, and the words of the refusal; null: it is still the one.
    const std::tuple<const char*, std::function<void()>, const char*> cases[] = {
        {"nothing", [] {}, nullptr},
        {"other permissions", [&] { fs::permissions(path, fs::perms::owner_read); }, nullptr},
        {"moved and back", [&] { fs::rename(path, folder.file("b")), fs::rename(folder.file("b"), path); },
         nullptr},
        {"the same tables at the same time", writes(otherLevel), nullptr},
        {"other tables at the same time", writes(otherName), changed},
        {"no archive at the same time", writes(std::string(bytes.size(), 'x')), changed},
        {"longer at the same time", writes(bytes + "x"), changed},
        {"written at another time", writes(bytes, 1), changed},
        {"a twin in its place", twinComes, replaced},
        {"a folder in its place", [&] { fs::remove(path), fs::create_directory(path); }, replaced},
        {"removed", [&] { fs::remove(path); }, "has been removed or renamed"},
    };
    for (const auto& [name, happens, words] : cases) {
        fs::remove_all(path);
        const InputFile opened{folder.write("a.cdds", bytes)};
        const ArchiveFile file{opened};
        const CddsArchive catalogue = makeCatalogue(readArchive(opened));
        happens();
        const std::string toRead = failureOf([&] { (void)file.open(path, catalogue); }).description();
        EXPECT_EQ(failureOf([&] { file.requireTables(opened, catalogue); }).description(), toRead) << name;
        EXPECT_NE(toRead.find(words == nullptr ? "no failure" : words), std::string::npos) << name << toRead;
        EXPECT_EQ(toRead.find(path) == std::string::npos, words == nullptr) << name;
    }
}

} // namespace
} // namespace pelrath::test
