#include "archive/journal.hpp"
#include "main_harness.hpp"

namespace pelrath::test {
namespace {

TEST(InterruptedInsertions, AreLookedForAtTheStartAndBeforeAnArchiveIsRead) {
    MainHarness h;
    const ArchiveBuilder builder{CddsType::TypeCdds, {{"wall", "DXT1", {{4, 4, plainBlocks(4, 4, 1)}}}}};
    const std::string path = h.folder.write("a.cdds", ArchiveBuilder{builder}.build());
    const auto interrupt = [&](char colour) {
        const InputFile archive{path};
        const CddsArchive catalogue = makeCatalogue(readArchive(archive));
        const LevelBytes level{catalogue.textures[0].mipmaps[0].dataOffset,
                               std::vector<std::byte>(8, std::byte(colour))};
        LevelBytes old = level;
        archive.readAt(static_cast<std::uint64_t>(level.dataOffset), old.data);
        const JournalRecord record{path,    "wall", archive.identity(), tablesChecksum(catalogue), 0644,
                                   {level}, {old}};
        Journal{h.folder.path(), record}.note(record);
    };
    const std::string told = "The insertion of the texture \"wall\" into " + path +
                             " was interrupted. It has been completed now: its level has the new data.";
    interrupt('a');
    h.start();
    h.boxes.expect({told, "Pelrath - Interrupted insertion"});
    EXPECT_TRUE(h.folder.read("a.cdds").ends_with("aaaaaaaa"));
    interrupt('b');
    h.session.archivePath = path;
    h.main.cmdReadCDDS.press();
    h.boxes.expect({told, "Pelrath - Interrupted insertion"});
    EXPECT_TRUE(h.folder.read("a.cdds").ends_with("bbbbbbbb"));
    EXPECT_EQ(h.main.Output[TexturePane].count(), 1) << "it is not read";
}

} // namespace
} // namespace pelrath::test
