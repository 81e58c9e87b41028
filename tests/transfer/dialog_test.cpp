#include "transfer/transfer_harness.hpp"

namespace pelrath::test {
namespace {

constexpr DialogMode out = DialogMode::Extraction;
constexpr DialogMode in = DialogMode::Insertion;

// How the choices rule one another is replayed beside a reference, in fuzz/dialog_fuzz.cpp.
struct Dialog : testing::Test, TransferHarness {};

// Rules that followed each other's changes one by one would nest as deep as the list is long.
TEST_F(Dialog, TakesTheLongestChain) {
    open({CddsType::TypeCdds, {{"long.bmp", "DXT1", std::vector(32767, LevelPlan{1, 1, "12345678"})}}});
    show(in, [&] {
        act({single, noLevel});
        EXPECT_EQ(dialog.List1.checkedCount(), 0);
        for (const auto whole : {embedded, create}) {
            act({single, whole, noLevel, unmark(0)});
            EXPECT_EQ(dialog.List1.checkedCount(), 32767);
        }
    });
}

TEST_F(Dialog, ShowsTheTextureAndWhatTheModeNeeds) {
    open({CddsType::TypeCdds, {{"caf\xE9.tga", "DXT5", {{256, 128, "x"}, {12345678, 123456, "x"}}}}});
    session.settings.bazarTempFolder = "/bazar";
    session.settings.cddsBackupFolder = "/safe";
    const std::tuple<DialogMode, const char*, bool> cases[] = {
        {in, "Texture Insertion, Input file format, Mipmap insertion, Insert", true},
        {out, "Texture Extraction, Output file format, Mipmap extraction, Extract", false}};
    for (const auto& [mode, captions, insertion] : cases) {
        show(mode, [&, captions = captions, insertion = insertion] {
            EXPECT_EQ(row(dialog.window.caption(), dialog.FileFormat.caption(), dialog.Mipmaps.caption(),
                          dialog.cmdExtractInsert.caption()),
                      captions);
            for (const Control* part : std::initializer_list<const Control*>{
                     &dialog.destinationFrame, &dialog.optMipmaps[Create], &dialog.lblFilter}) {
                EXPECT_EQ(part->visible(), insertion);
            }
            EXPECT_EQ(row(dialog.extractOptionsFrame.visible(), dialog.chkLaunchEditor.visible()),
                      row(!insertion, !insertion));
            EXPECT_EQ(row(dialog.Text1.text(), dialog.List1.line(0), dialog.List1.line(1)),
                      "caf\u00E9.tga,     256 x    128 , 12345678 x 123456 ");
            EXPECT_FALSE(dialog.chkOverwriteExistingFiles.checked() && !insertion);
            act({overwriting, launching});
            const Box& box = dialog.window.box();
            EXPECT_EQ(row(box.left + box.width / 2, box.top + box.height / 2), "11000, 9500");
        });
    }
    show(in, [&] {
        EXPECT_EQ(row(dialog.chkDestination[ToArchive].checked(), dialog.chkSaveCdds.checked(),
                      dialog.txtCDDSBackupFolder.text(), dialog.chkLaunchEditor.checked(),
                      dialog.txtbazarTempFolder.text(), dialog.lstScaleFilter.lines().at(2),
                      dialog.lstScaleFilter.lines().size(), dialog.lstScaleFilter.selectedRow()),
                  "true, true, /safe, false, /bazar, Bilinear filter, 9, 2");
    });
}

TEST(DialogWithoutLibrary, HasItsDesignCaptionsWhateverWasShownBefore) {
    static bool fails = false;
    LibraryFunctions library = imageLibrary();
    library.ilGetError = [] { return fails ? 0x0505U : imageLibrary().ilGetError(); };
    TransferHarness h{library};
    h.open({CddsType::TypeCdds, {chainOf("wall.bmp", "DXT1", 4, 4)}});
    h.show(out, [] {});
    fails = true;
    h.show(in, [&] {
        EXPECT_EQ(row(h.dialog.FileFormat.caption(), h.dialog.optOutFileType[NativeFileType].caption(),
                      h.dialog.Mipmaps.caption(), h.dialog.cmdExtractInsert.caption()),
                  "<file format>, <bmp/tga>, <mipmaps operation>, <mode>");
        h.boxes.expect("ilInit Error Number: ");
    });
    fails = false;
    h.boxes.take(); // of the close
}

TEST_F(Dialog, AsksForTheBazarTempFolderWhenItHasNone) {
    open({CddsType::TypeCdds, {chainOf("wall.bmp", "DXT1", 2, 2)}});
    std::string& target = session.settings.bazarTempFolder;
    const std::string here = folder.path(), none = "Invalid Bazar Temporary Folder";
    const auto shown = [this] {
        return row(dialog.chkDestination[ToBazarTemp].checked(), dialog.txtbazarTempFolder.text());
    };
    // The folder before, the user's answer, how often it is asked for, whether it is wanted then, what is
    // shown.
    const std::tuple<std::string, std::string, int, bool, std::string> cases[] = {
        {"", "", 1, false, none}, {folder.file("gone"), here, 1, true, here}, {here, "", 0, true, here}};
    for (const auto& [before, answer, times, wanted, text] : cases) {
        target = before;
        int asked = 0;
        chooseBazarTempFolder = [&, &answer = answer] {
            ++asked;
            EXPECT_EQ(row(target, dialog.txtbazarTempFolder.text()), ", " + none);
            target = answer;
            dialog.window.activated.emit(); // as the other dialog's close does: nothing is set up again
        };
        show(in, [&, &wanted = wanted, &text = text] {
            act({external, unmark(1), intoBazarTemp});
            EXPECT_EQ(shown(), row(wanted, text));
            EXPECT_TRUE(dialog.optMipmaps[External].selected() && !dialog.List1.isChecked(1));
        });
        EXPECT_EQ(asked, times);
    }
    // The buttons beside the folders ask at once.
    chooseBazarTempFolder = [&] { target = target.empty() ? "/new" : ""; };
    chooseSafeCopyFolder = [this] {
        session.settings.cddsBackupFolder = "/safe";
        dialog.window.activated.emit();
    };
    show(in, [&] {
        act({single, intoBazarTemp});
        dialog.cmdGetCDDSBackupFolder.press();
        EXPECT_EQ(row(dialog.txtCDDSBackupFolder.text(), dialog.List1.checkedCount()), "/safe, 1");
        for (const char* expected : {"false, ", "false, /new"}) {
            dialog.cmdGetBazarTempFolder.press();
            EXPECT_EQ(shown(), expected);
        }
        target = here;
        act({intoBazarTemp});
        target.clear();
    });
    chooseBazarTempFolder = [] { ADD_FAILURE() << "the reset asks nothing"; };
    show(in, [&] { EXPECT_EQ(shown(), "false, "); });
}

TEST_F(Dialog, RemembersWhatItWasLastUsedWithWhenThatIsWanted) {
    open({CddsType::TypeCdds, {chainOf("wall.bmp", "DXT1", 8, 8)}});
    const Step remember = [](TransferControls& c) { c.chkRemember.setChecked(true); };
    const Step forget = [](TransferControls& c) { c.chkRemember.setChecked(false); };
    const auto shown = [this] {
        const int kind = dialog.optOutFileType.selectedIndex(), operation = dialog.optMipmaps.selectedIndex();
        return row(kind, operation, dialog.lstScaleFilter.selectedRow(), dialog.List1.checkedCount(),
                   dialog.chkOverwriteExistingFiles.checked() || dialog.chkSaveCdds.checked(),
                   dialog.chkLaunchEditor.checked() || dialog.chkDestination[ToBazarTemp].checked());
    };
    const std::string given = "1, 0, 2, 1, false, false", givenIn = "1, 1, 2, 4, true, false";
    // The mode, what the settings hold before, what is done up to the last press, what they hold then, and
    // how the next dialog begins: kind, operation, filter, number of marks, then overwriting or the safe
    // copy, and the editor or the loose copy.
    const std::tuple<DialogMode, const char*, Steps, std::string, std::string> cases[] = {
        {out, "", {external, overwriting}, "", given},
        {out, "", {external, overwriting, remember}, "dds external overwrite", "1, 2, 2, 4, true, false"},
        {out, "", {images, launching, remember}, "image editor", "0, -1, 2, 1, false, true"},
        {out, "dds embedded", {remember, single}, "dds single", given},
        {out, "dds embedded", {forget}, "", given},
        {out, "??? create bazar", {}, "dds single", given},
        {in, "", {images, single, filter(7), remember}, "image single filter=7", "0, 0, 7, 1, true, false"},
        {in,
         "",
         {withoutSafeCopy, intoBazarTemp, remember},
         "dds embedded filter=2 no-copy bazar",
         "1, 1, 2, 4, false, true"},
        {in, "image external filter=9 bazar", {}, "image create filter=2", "0, 3, 2, 4, true, false"},
        {in, "", {}, "", givenIn}};
    for (const auto& [mode, before, steps, after, next] : cases) {
        RememberedChoices& remembered = session.settings.remembered;
        remembered = {mode == out ? before : "kept", mode == in ? before : "kept"};
        (void)this->after(mode, steps);
        EXPECT_EQ(row(remembered.extraction, remembered.insertion),
                  mode == out ? after + ", kept" : "kept, " + after);
        show(mode, [&, &after = after, &next = next] {
            EXPECT_EQ(shown(), next) << after;
            EXPECT_EQ(dialog.chkRemember.checked(), !after.empty());
        });
    }
}

TEST_F(Dialog, RefusesTypesThatItCannotHandle) {
    open({CddsType::TypeCdds, {chainOf("wall.bmp", "ATI2", 8, 8)}});
    for (const DialogMode mode : {out, in}) {
        for (const Step& kind : {Step{images}, Step{ddsFiles}}) {
            after(mode, {kind});
            boxes.expect("\"ATI2\"");
        }
    }
    EXPECT_EQ(files(), "");
}

TEST_F(Dialog, NothingOverlapsAtAnySize) {
    open({CddsType::TypeCdds, {chainOf("wall.tga", "DXT5", 8, 8)}});
    const auto check = [&] {
        const Box& whole = dialog.window.box();
        std::vector<Box> placed;
        for (const Control* control : std::initializer_list<const Control*>{
                 &dialog.Label1, &dialog.Text1, &dialog.FileFormat, &dialog.Mipmaps, &dialog.OptionsFrame,
                 &dialog.extractOptionsFrame, &dialog.destinationFrame, &dialog.lblWarningTgaInsert,
                 &dialog.ExtractSummary, &dialog.cmdExtractInsert, &dialog.cmdQuit, &dialog.chkRemember,
                 &dialog.cmdCheck}) {
            if (control->visible()) placed.push_back(control->box());
        }
        for (const Box& a : placed) {
            EXPECT_TRUE(a.left >= 0 && a.top >= 0 && a.left + a.width <= whole.width &&
                        a.top + a.height <= whole.height)
                << a.top;
            const auto overlaps = [&](const Box& b) {
                return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
                       b.top < a.top + a.height;
            };
            EXPECT_EQ(std::count_if(placed.begin(), placed.end(), overlaps), 1) << "with itself " << a.top;
        }
        EXPECT_GT(dialog.ExtractSummary.box().height, 1000);
    };
    for (const auto& [mode, steps] :
         {std::pair{out, Steps{}}, {in, {}}, {in, {images}}, {in, {images, ddsFiles}}}) {
        show(mode, [&, &steps = steps] {
            act(steps);
            check();
            dialog.window.setSize(dialog.window.smallestWidth(), dialog.window.smallestHeight());
            check();
            dialog.window.setSize(20000, 12000);
            check();
        });
    }
}

} // namespace
} // namespace pelrath::test
