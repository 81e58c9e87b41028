#include "archive/journal.hpp"
#include "archive/reader.hpp"
#include "batch/collected_messages.hpp"
#include "console_harness.hpp"

#include <nlohmann/json.hpp>

#include <cstring>

namespace pelrath::test {
namespace {

const TexturePlan wall = chainOf("wall.bmp", "DXT1", 8, 8), mask = chainOf("a b.tga", "DXT5", 4, 4),
                  umlaut = chainOf("\xE4.bmp", "DXT1", 4, 4, blue, yellow),
                  outside = chainOf("../up.bmp", "DXT1", 4, 4);

TEST(Console, ExtractsWhatIsAskedForAndTellsWhatItCannot) {
    const std::tuple<const char*, const char*, int, const char*, const char*> cases[] = {
        {"the largest levels, blanks and other letters in names", "a.cdds --as dds --levels largest", 1,
         "a b-4x4.dds wall-8x8.dds ä-4x4.dds", "../up.bmp: The texture's name \"../up\" cannot be"},
        {"one texture by its name, all levels", "a.cdds wall --as dds --levels all", 0,
         "wall-1x1.dds wall-2x2.dds wall-4x4.dds wall-8x8.dds", "4 file(s) written."},
        {"a pattern, as images", "a.cdds ?_b* wa*.bmp --as image --levels largest", 0,
         "a b-4x4.tga wall-8x8.bmp", "2 file(s) written."},
        {"a pattern of other letters", "a.cdds ? --as dds --levels largest", 0, "ä-4x4.dds", "1 file(s)"},
        {"a chain as an image", "a.cdds wall --as image --levels chain", 1, "", "holds one level"},
        {"a name that there is not", "a.cdds wall w --as dds --levels chain", 1, "wall-8x8.dds",
         "w: @/a.cdds has no such texture"},
        {"brackets around it", "a.cdds [w] --as dds --levels chain", 1, "", "[w]: @/a.cdds has no such"},
        {"nothing in brackets", "a.cdds [] --as dds --levels chain", 1, "", "[]: @/a.cdds has no such"},
        {"no folder", "a.cdds --as dds --levels all --to ", 2, "", "--to"},
        {"an unknown word", "a.cdds --as dds --levels some", 2, "", "it is one of largest, all, chain"},
        {"no archive", "none --as dds --levels all", 3, "", "File not found (@/none)"},
    };
    for (const auto& [what, line, code, files, told] : cases) {
        ConsoleHarness h{{wall, mask, umlaut, outside}};
        EXPECT_EQ(h(std::string{"extract --to @/out @/"} + line), code) << what;
        EXPECT_EQ(h.folder.has("out") ? h.folder.list("out") : "", files) << what;
        EXPECT_NE(h.err.find(told), std::string::npos) << what << ": " << h.err;
    }
}

TEST(Console, OverwritesNothingUnasked) {
    ConsoleHarness h{{wall, chainOf("wall.tga", "DXT1", 8, 8)}};
    h.folder.makeFolder("out");
    (void)h.folder.write("out/wall-8x8.dds", "old");
    std::filesystem::create_symlink("../a.cdds", h.folder.file("out/wall-4x4.dds"));
    std::filesystem::create_symlink("../elsewhere", h.folder.file("out/wall-1x1.dds"));
    const std::string before = h.archive(), command = "extract @/a.cdds --to @/out --as dds --levels all";
    h.stop = [&h, planned = false]() mutable { // behind the plan's look
        return !std::exchange(planned, true) && h.folder.write("out/wall-2x2.dds", "late").empty();
    };
    EXPECT_EQ(h(command), 1);
    EXPECT_EQ(row(h.folder.read("out/wall-8x8.dds"), h.folder.read("out/wall-2x2.dds")), "old, late");
    EXPECT_FALSE(h.folder.has("elsewhere"));
    EXPECT_NE(h.err.find("wall-8x8.dds: it is there already"), std::string::npos);
    EXPECT_EQ(h(command + " --overwrite"), 1);
    EXPECT_EQ(h.folder.read("out/wall-8x8.dds").size(), 128U + 32U);
    EXPECT_TRUE(h.archive() == before);
    EXPECT_NE(h.err.find("wall-4x4.dds: it is the archive itself"), std::string::npos);
    EXPECT_NE(h.err.find("wall.tga: @/out/wall-8x8.dds: another level or texture has"), std::string::npos);
    EXPECT_NE(h.err.find("3 file(s) written, 5 refused."), std::string::npos) << h.err;
}

TEST(Console, InsertsFilesThatFitAndNoOther) {
    const std::string bmp = "BM" + bytesOf("d0 d0 d54 d40 d8 d8 w1 w24 d0 d0 d0 d0 d0 d0 192*F8"),
                      dxt1 = ddsFile("DXT1", 8, 8, plainBlocks(8, 8, blue));
    const std::string small = ddsFile("DXT1", 4, 4, plainBlocks(4, 4, blue));
    const std::string none = "--no-safe-copy", chain = [&] {
        std::string file = ddsFile("DXT1", 8, 8, plainBlocks(8, 8, blue) + std::string(24, 'c'));
        return file.replace(28, 4, little(4, 4));
    }();
    // What it is, files in "in" by their names, options, exit code, levels of the texture that have changed,
    // and a part of what is told.
    const std::tuple<const char*, std::map<std::string, std::string>, std::string, int, const char*,
                     const char*>
        cases[] = {
            {"a level", {{"wall-4x4.dds", small}}, none, 0, "1", "1 file(s) inserted"},
            {"two levels", {{"wall-4x4.dds", small}, {"wall-8x8.bmp", bmp}}, none, 0, "01", "2 file(s)"},
            {"a chain", {{"wall-8x8.dds", chain}}, none, 0, "0123", "1 file(s) inserted"},
            {"an image for all levels", {{"wall-8x8.bmp", bmp}}, none + " --create", 0, "0123", "1 file(s)"},
            {"the same with a filter",
             {{"wall-8x8.bmp", bmp}},
             none + " --create --filter box",
             0,
             "0123",
             ""},
            {"all of a smaller level",
             {{"wall-4x4.dds", small}},
             none + " --create",
             1,
             "",
             "there is no file of level 0"},
            {"no word of a safe copy", {{"wall-4x4.dds", small}}, "", 2, "", "--no-safe-copy"},
            {"a copy to nowhere",
             {{"wall-4x4.dds", small}},
             "--safe-copy @/no",
             1,
             "",
             "Path not found (@/no)"},
            {"a dry run of that",
             {{"wall-4x4.dds", small}},
             "-n --safe-copy @/no",
             1,
             "",
             "@/no is no folder"},
            {"a file that is not there", {}, none + " @/no", 1, "", "@/no: it is not there"},
            {"a dry run",
             {{"wall-8x8.dds", dxt1}},
             none + " -n",
             0,
             "",
             "1 file(s) inserted, were it no dry run"},
            {"another size",
             {{"wall-4x4.dds", dxt1}},
             none,
             1,
             "",
             "its picture has 8 x 8 pixels, the level 4 x 4"},
            {"another type",
             {{"wall-4x4.dds", ddsFile("DXT5", 4, 4, std::string(16, 'x'))}},
             none,
             1,
             "",
             "its blocks are not DXT1"},
            {"one too short beside a good one",
             {{"wall-4x4.dds", small.substr(0, 135)}, {"wall-8x8.dds", dxt1}},
             none,
             1,
             "",
             "wall-4x4.dds: it is too short"},
            {"an image of the wrong kind",
             {{"wall-8x8.tga", bmp}},
             none,
             1,
             "",
             "DXT1 textures take DDS files and"},
            {"two of one level",
             {{"wall-8x8.bmp", bmp}, {"wall-8x8.dds", dxt1}},
             none,
             1,
             "",
             "two files are of"},
            {"a stranger beside a good one",
             {{"wall-8x8.dds", dxt1}, {"no-8x8.dds", dxt1}},
             none,
             0,
             "0",
             "no texture of the archive has a file of this name"},
            {"the same folder twice",
             {{"wall-4x4.dds", small}},
             none + " @/in",
             0,
             "1",
             "1 file(s) inserted"},
            {"a chain and one of its levels",
             {{"wall-8x8.dds", chain}, {"wall-4x4.dds", small}},
             none,
             1,
             "",
             "two files are of"},
            {"a stranger, quietly",
             {{"wall-4x4.dds", small}, {"no-8x8.dds", dxt1}},
             none + " -q",
             0,
             "1",
             ""},
            {"a picture without its end",
             {{"wall-8x8.bmp", bmp.substr(0, bmp.size() - 4)}},
             none,
             1,
             "",
             "wall-8x8.bmp: it is too short"},
            {"a picture that is none", {{"wall-8x8.bmp", "BM"}}, none, 1, "", "it is not of the kind that"},
        };
    for (const auto& [what, files, options, code, changed, told] : cases) {
        ConsoleHarness h{{mask, wall}};
        h.folder.makeFolder("in");
        for (const auto& [name, bytes] : files) {
            (void)h.folder.write("in/" + name, bytes);
        }
        const std::string before = h.archive();
        EXPECT_EQ(h("insert @/a.cdds @/in " + options), code) << what << ": " << h.err;
        EXPECT_NE((h.err + h.out).find(told), std::string::npos) << what << ": " << h.err;
        EXPECT_TRUE(!options.ends_with("-q") || h.err.empty()) << what << ": " << h.err;
        const std::string after = h.archive();
        std::string levels;
        std::size_t at = before.size() - 56; // the four levels stand at the end
        for (const auto& [name, size] : {std::pair{'0', 32U}, {'1', 8U}, {'2', 8U}, {'3', 8U}}) {
            if (before.compare(at, size, after, at, size) != 0) levels += name;
            at += size;
        }
        EXPECT_EQ(levels, changed) << what;
        EXPECT_TRUE(before.compare(0, before.size() - 56, after, 0, before.size() - 56) == 0) << what;
        EXPECT_EQ(h.folder.list("program"), "") << what;
    }
}

TEST(Console, InsertsNothingThatHasChangedSinceItWasPlanned) {
    // The files' kind, the extension of what is saved anew, and what is told.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"image", ".bmp", "wall-8x8.bmp has other sides than the level by now"},
        {"dds", ".dds", "wall-8x8.dds is another by now: its picture has 4 x 4 pixels"}};
    for (const auto& [kind, extension, told] : cases) {
        ConsoleHarness h{{wall}};
        EXPECT_EQ(h(std::string{"extract @/a.cdds --to @/in --as "} + kind + " --levels all -q"), 0);
        const std::string changed = std::string{"in/wall-8x8"} + extension,
                          other =
                              h.folder.read(std::string{"in/wall-4x4"} + extension) + std::string(99, 'x');
        h.stop = [&] { return h.folder.write(changed, other).empty(); };
        EXPECT_EQ(h("insert @/a.cdds @/" + changed + " --no-safe-copy"), 1);
        EXPECT_NE(h.err.find(told), std::string::npos) << h.err;
    }
}

TEST(Console, ComparesLevelByLevel) {
    TexturePlan other = wall, flat = wall;
    other.levels[0].data[0] ^= 1;
    flat.levels[0].height = 4;
    ConsoleHarness h{{wall, wall}};
    const std::tuple<const char*, std::vector<TexturePlan>, const char*> cases[] = {
        {"the same", {wall, wall}, ""},
        {"the first of two of one name", {other, wall}, "wall.bmp, level 0: "},
        {"another height", {wall, flat}, "wall.bmp, level 0: 8 x 8 and 8 x 4 pixels\n"},
        {"one is missing", {wall}, "wall.bmp: only in @/a.cdds\n"}};
    for (const auto& [what, textures, begin] : cases) {
        (void)h.folder.write("b.cdds", ArchiveBuilder{CddsType::TypeCdds, textures}.build());
        EXPECT_EQ(h("diff @/a.cdds @/b.cdds"), *begin == '\0' ? 0 : 1) << what;
        EXPECT_EQ(h.out.substr(0, std::strlen(begin)), begin) << what;
    }
}

// The first level of "a b.tga" begins behind the tables.
TEST(Console, WritesOnTheTermsAgreedOnAndGivesEverythingBack) {
    const auto prepared = [](ConsoleHarness& h) {
        EXPECT_EQ(h("extract @/a.cdds --to @/in --as dds --levels chain -q"), 0) << h.err;
        std::string other = h.archive();
        for (const char* name : {"in/a b-4x4.dds", "in/wall-8x8.dds"}) {
            std::string file = h.folder.read(name);
            (void)h.folder.write(name, file.replace(128, std::string::npos, file.size() - 128, 'n'));
        }
    };
    ConsoleHarness h{{mask, wall}};
    prepared(h);
    const std::string before = h.archive(), insert = "insert @/a.cdds @/in ";
    h.folder.permit("a.cdds", 0444);
    EXPECT_EQ(h(insert + "--no-safe-copy -n"), 1) << "it is read-only";
    EXPECT_EQ(h(insert + "--safe-copy @/copies"), 1);
    EXPECT_NE(h.err.find("nothing was written: @/a.cdds is read-only"), std::string::npos) << h.err;
    EXPECT_EQ(h.folder.list("copies"), "");
    EXPECT_EQ(h(insert + "--safe-copy @/copies --write-read-only"), 0) << h.err;
    EXPECT_EQ(h.out, "a b.tga, all levels: @/in/a b-4x4.dds\nwall.bmp, all levels: @/in/wall-8x8.dds\n");
    EXPECT_EQ(row(h.folder.list("copies"), h.folder.permitted("a.cdds")), row("a-0.cdds", 0444));
    EXPECT_TRUE(h.folder.read("copies/a-0.cdds") == before && h.archive() != before);
    h.folder.permit("a.cdds", 0644);
    const std::string changed = h.archive();

    EXPECT_EQ(h("diff @/a.cdds @/copies/a-0.cdds"), 1);
    EXPECT_TRUE(h.out.starts_with("a b.tga, level 0: ") && h.out.find(" dB\n") != std::string::npos) << h.out;
    EXPECT_EQ(h("restore @/a.cdds @/copies/a-0.cdds a* -q --no-safe-copy"), 0);
    EXPECT_EQ(row(h.out, h.err), row("", ""));
    EXPECT_EQ(h("diff @/a.cdds @/copies/a-0.cdds"), 1);
    EXPECT_TRUE(h.out.starts_with("wall.bmp, level 0: ")) << h.out;
    EXPECT_EQ(h("restore @/a.cdds @/copies/a-0.cdds --safe-copy @/copies"), 0);
    EXPECT_NE(h.err.find("4 level(s) restored"), std::string::npos) << h.err;
    EXPECT_TRUE(h.archive() == before && h.folder.list("copies") == "a-0.cdds a-1.cdds");
    EXPECT_EQ(h("diff @/a.cdds @/copies/a-0.cdds"), 0);
    EXPECT_EQ(h.out, "");

    int asked = 0;
    h.stop = [&asked] { return ++asked == 2; };
    EXPECT_EQ(h(insert + "--no-safe-copy"), 4);
    EXPECT_NE(h.err.find("stopped: 1 file(s) inserted, 1 not reached."), std::string::npos) << h.err;
    EXPECT_EQ(h("diff @/a.cdds @/copies/a-0.cdds"), 1);
    EXPECT_EQ(h.out.find("wall"), std::string::npos) << h.out;
    asked = 0; // in the copy
    EXPECT_EQ(h(insert + "--safe-copy @/copies"), 4);
    EXPECT_NE(h.err.find("stopped: 0 file(s) inserted, 2 not reached."), std::string::npos) << h.err;
    EXPECT_EQ(h.folder.list("copies"), "a-0.cdds a-1.cdds");
    for (const char* other : {"a.cdds", "other"}) {
        (void)h.folder.write("other", ArchiveBuilder{CddsType::TypeCdds, {wall, mask}}.build());
        EXPECT_EQ(h(std::string{"restore --no-safe-copy @/a.cdds @/"} + other), 1);
        EXPECT_NE(h.err.find(*other == 'a' ? "is the archive itself" : "its tables are others"),
                  std::string::npos);
    }
}

TEST(Console, OneTextureThatFailsLeavesTheOthersAlone) {
    ConsoleHarness h{{wall, mask, umlaut}};
    EXPECT_EQ(h("extract @/a.cdds --to @/in --as image --levels largest -q"), 0) << h.err;
    const std::string before = h.archive(), image = h.folder.read("in/a b-4x4.tga");
    // Run-length coded, so that nothing but a load finds the end missing.
    (void)h.folder.write("in/a b-4x4.tga", image.substr(0, 2) + '\x0A' + image.substr(3, 27));
    for (const char* name : {"in/wall-8x8.bmp", "in/\u00E4-4x4.bmp"}) {
        const std::string file = h.folder.read(name);
        (void)h.folder.write(name, file.substr(0, 54) + std::string(file.size() - 54, 'n'));
    }
    EXPECT_EQ(h("insert @/a.cdds @/in --no-safe-copy"), 1);
    EXPECT_NE(h.err.find("a b.tga: @/in/a b-4x4.tga: "), std::string::npos) << h.err;
    EXPECT_NE(h.err.find("2 file(s) inserted, 1 failed."), std::string::npos) << h.err;
    (void)h.folder.write("before", before);
    EXPECT_EQ(h("diff @/a.cdds @/before"), 1);
    EXPECT_EQ(row(h.out.find("wall.bmp, level 0") < 1, h.out.find("a b.tga"),
                  h.out.find("\u00E4.bmp, level 0") > 1),
              row(true, std::string::npos, true))
        << h.out;
}

TEST(Console, ExtractsImagesInProcessesOfItsOwn) {
    ConsoleHarness h{{wall, mask, umlaut, outside}};
    const std::string command = "extract @/a.cdds --as image --levels all --to @/";
    EXPECT_EQ(h(command + "one"), 1);
    const std::string told = h.err;
    h.executable = PELRATH_BATCH;
    EXPECT_EQ(h(command + "more"), 1);
    EXPECT_EQ(h.shortened(h.err), told);
    EXPECT_EQ(h.folder.list("one"), h.folder.list("more"));
    for (const std::string& name : h.folder.names("one")) {
        EXPECT_TRUE(h.folder.read("one/" + name) == h.folder.read("more/" + name)) << name;
    }
    h.folder.makeFolder("part"), (void)h.folder.write("part/wall-8x8.bmp", "old");
    EXPECT_EQ(h("extract @/a.cdds wall a* --as image --levels all --to @/part"), 1);
    EXPECT_EQ(h.err, "pelrath-batch: wall.bmp: @/part/wall-8x8.bmp: it is there already.\n"
                     "pelrath-batch: 6 file(s) written, 1 refused.\n");
    h.executable = h.folder.write("dies once", "#!/bin/sh\nmkdir '" + h.folder.file("died") +
                                                   "' 2>/dev/null || exec '" PELRATH_BATCH "' \"$@\"\n");
    h.folder.permit("dies once", 0700);
    EXPECT_EQ(h("extract @/a.cdds wall a* ? --as image --levels largest --to @/all"), 1);
    EXPECT_NE(h.err.find("2 file(s) written, 1 failed."), std::string::npos) << h.err;
    h.executable = "/bin/false";
    EXPECT_EQ(h(command + "none"), 1);
    EXPECT_EQ(h.folder.list("none"), "");
    EXPECT_NE(h.err.find("0 file(s) written, 1 refused, 10 failed."), std::string::npos) << h.err;
}

TEST(Completion, OffersWhatCanStandThere) {
    const TemporaryFolder folder;
    (void)folder.write("x y.cdds", ""), (void)folder.write("x.tga", "");
    const std::pair<const char*, const char*> cases[] = {
        {"ex", "extract"},
        {"extract --as ''", "dds image"},
        {"insert a.cdds --w", "--write-read-only"},
        {"list x", "x y.cdds"},
        {"restore --safe-copy copies a.cdds x", "x y.cdds"},
        {"check a.cdds x", ""},
    };
    for (const auto& [words, offered] : cases) {
        (void)folder.write("script", "cd " + folder.path() +
                                         "\n. " PELRATH_PACKAGING "/pelrath-batch.bash\n"
                                         "COMP_WORDS=(pelrath-batch " +
                                         words +
                                         ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                                         "_pelrath_batch\necho -n \"${COMPREPLY[*]}\" > said\n");
        EXPECT_EQ(std::system(("bash " + folder.file("script")).c_str()), 0);
        EXPECT_EQ(folder.read("said"), offered) << words;
    }
}

TEST(Console, CompletesWhatWasInterruptedBeforeItWrites) {
    ConsoleHarness h{{wall}};
    const std::string before = h.archive();
    const InputFile file{h.folder.file("a.cdds")};
    const CddsArchive catalogue = makeCatalogue(readArchive(file));
    const std::int64_t at = catalogue.textures[0].mipmaps[3].dataOffset;
    const LevelBytes old{at, std::vector<std::byte>(8)}, fresh{at, std::vector<std::byte>(8, std::byte{'n'})};
    std::vector<LevelBytes> was{old};
    file.readAt(static_cast<std::uint64_t>(at), was[0].data);
    const JournalRecord record{
        h.folder.file("a.cdds"), "wall.bmp", file.identity(), tablesChecksum(catalogue), 0644, {fresh}, was};
    { Journal{h.folder.file("program"), record}.note(record); }
    for (const auto& [line, code] : {std::pair{"insert -n --no-safe-copy @/a.cdds @/copies", 0},
                                     {"list @/a.cdds", 0},
                                     {"check @/a.cdds", 1},
                                     {"diff @/a.cdds @/a.cdds", 0},
                                     {"extract @/a.cdds --to @/out --as dds --levels chain", 0}}) {
        EXPECT_EQ(h(line), code) << line;
        EXPECT_NE(h.err.find("@/a.cdds: the insertion of the texture \"wall.bmp\" was interrupted"),
                  std::string::npos)
            << line << h.err;
    }
    EXPECT_TRUE(h.archive() == before);
    EXPECT_EQ(h("insert @/a.cdds @/copies --no-safe-copy"), 0);
    EXPECT_NE(h.err.find("was interrupted. It has been completed now: its level has the new data."),
              std::string::npos)
        << h.err;
    EXPECT_TRUE(h.archive().ends_with("nnnnnnnn") && h.folder.list("program").empty());
}

TEST(Console, ChecksEveryLevelAndListsThemAll) {
    TexturePlan odd = chainOf("odd\x07", "DXT1", 8, 8);
    odd.levels[1].width = 3;
    odd.levels[2].data = "short";
    odd.levels[3].data.clear();
    ConsoleHarness h{{wall, odd, {"x", "ARGB", {{4, 4, "1234"}}}, chainOf("tall", "DXT1", 2, 16)}};
    EXPECT_EQ(h("check @/a.cdds"), 1);
    EXPECT_EQ(h.out, "odd\uFFFD, level 1: its sides are not half of those above\n"
                     "odd\uFFFD, level 2: it has 5 bytes, and 2 x 2 pixels take 8\n"
                     "odd\uFFFD, level 3: it has no data\n"
                     "x, level 0: textures of the type \"ARGB\" can be neither extracted nor inserted\n");
    EXPECT_EQ(h("list @/a.cdds"), 0);
    EXPECT_TRUE(h.out.starts_with("    1         8x8 DXT1  4         56  wall.bmp\n")) << h.out;
    EXPECT_EQ(h("list --json @/a.cdds"), 0);
    const auto list = nlohmann::json::parse(h.out);
    EXPECT_EQ(list["textures"][1]["name"], "odd\x07");
    EXPECT_EQ(list["textures"][0]["levels"][3]["bytes"], 8);
    for (const auto& [line, code, words] : {std::tuple{"", 2, ""},
                                            {"--help", 0, "restore"},
                                            {"--version", 0, "."},
                                            {"work --tables 1 @/a.cdds", 3, ""}}) {
        EXPECT_EQ(h(line), code) << line;
        EXPECT_NE(h.out.find(words), std::string::npos) << line;
    }
    std::istringstream nothing;
    std::ostream closed{nullptr};
    EXPECT_EQ(batch::run({"list", h.folder.file("a.cdds")}, {nothing, closed, closed, false, "", "", h.stop}),
              1);
    EXPECT_EQ(batch::asOneLine("Error: 5 \r\n\r\nIt is gone.\r\nPlease look."),
              "Error: 5: It is gone. Please look");
    const std::string deaf = PELRATH_BATCH " list " + h.folder.file("a.cdds") + " <&- >&- 2>&-";
    EXPECT_EQ(std::system(deaf.c_str()), 1 << 8) << "nobody could be told";
    (void)h.folder.write("a.cdds", "cdds");
    EXPECT_EQ(h("check @/a.cdds"), 3);
    EXPECT_NE(h.err.find("@/a.cdds is damaged: "), std::string::npos) << h.err;
    EXPECT_EQ(h.err.find(".."), std::string::npos) << h.err;
}

} // namespace
} // namespace pelrath::test
