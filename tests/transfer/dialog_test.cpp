#include "transfer/transfer_harness.hpp"

namespace pelrath::test {
namespace {

constexpr DialogMode out = DialogMode::Extraction;
constexpr DialogMode in = DialogMode::Insertion;

struct Dialog : testing::Test, TransferHarness {
    /// The kind; the operations, upper case where enabled, the chosen one in brackets; the marks; what of
    /// filter, warning and Bazar Temp folder can be used.
    [[nodiscard]] std::string state() {
        std::string text =
            dialog.optOutFileType.selectedIndex() == 1 ? "dds " : dialog.optOutFileType[0].caption() + " ";
        for (std::size_t i = 0; i < 4; ++i) {
            const OptionButton& option = dialog.optMipmaps[i];
            const std::string letter(1, (option.enabled() ? "SEXC" : "sexc")[i]);
            text += option.selected() ? "(" + letter + ")" : letter;
        }
        text += ' ';
        for (int i = 0; i < dialog.List1.count(); ++i) {
            text += dialog.List1.isChecked(i) ? '#' : '.';
        }
        if (dialog.lstScaleFilter.visible() && dialog.lstScaleFilter.enabled())
            text += dialog.lblFilter.textColor() == TextColor::Normal ? " filter" : " ?";
        if (dialog.lblWarningTgaInsert.visible()) text += " warning";
        if (dialog.destinationFrame.visible() && dialog.chkDestination[1].enabled())
            text += dialog.txtbazarTempFolder.enabled() ? " bazar" : " ?";
        return text;
    }
};

TEST_F(Dialog, EveryChoiceRulesTheOthers) {
    const std::tuple<DialogMode, const char*, int, const char*, const char*> cases[] = {
        // An extraction: one level, or the marked ones, or all in one file; images are made of one level
        // alone.
        {out, "DXT1", 4, "", "dds (S)EXC #.."},
        {out, "DXT1", 4, "2", "dds (S)EXC ..#"},
        {out, "DXT1", 4, "0", "dds (S)EXC ..."},
        {out, "DXT1", 4, "N", "dds (S)EXC ..."},
        {out, "DXT1", 4, "2A", "dds (S)EXC #.."},
        {out, "DXT1", 4, "e", "dds S(E)XC ###"},
        {out, "DXT1", 4, "e1", "dds S(E)XC ###"},
        {out, "DXT1", 4, "eN", "dds S(E)XC ###"},
        {out, "DXT1", 4, "x", "dds SE(X)C ###"},
        {out, "DXT1", 4, "x0", "dds SE(X)C .##"},
        {out, "DXT1", 4, "xN", "dds SE(X)C ..."},
        {out, "DXT1", 4, "xNA", "dds SE(X)C ###"},
        {out, "dxt1", 4, "n", "BMP sexc #.."},
        {out, "Dxt5", 4, "x0n", "TGA sexc #.."},
        {out, "DXT5", 4, "xn12", "TGA sexc ..#"},
        {out, "DXT5", 4, "x0nd", "dds (S)EXC #.."},
        {out, "DXT5", 1, "xN", "dds SE(X)C ."},
        {out, "ATI2", 4, "n", " sexc #.."},
        {out, "ATI2", 4, "xn", " sexc ###"}, // the kind is still DDS
        // An insertion starts with the whole chain.
        {in, "DXT1", 4, "", "dds S(E)XC ### bazar"},
        {in, "DXT1", 4, "s", "dds (S)EXC #.. bazar"},
        {in, "DXT1", 4, "s2", "dds (S)EXC ..# bazar"},
        {in, "DXT1", 4, "c1", "dds SEX(C) ### filter bazar"},
        {in, "DXT1", 4, "n", "BMP Sex(C) ### filter"},
        {in, "DXT5", 4, "n", "TGA Sex(C) ### filter warning"},
        {in, "DXT5", 4, "cn", "TGA Sex(C) ### filter warning"},
        {in, "DXT5", 4, "ns", "TGA (S)exC #.. warning"},
        {in, "DXT5", 4, "ns1", "TGA (S)exC .#. warning"},
        {in, "DXT5", 4, "nd", "dds S(E)XC ### bazar"},
        {in, "DXT5", 1, "sN", "dds (S)EXC . bazar"},
    };
    for (const auto& [mode, type, side, clicks, expected] : cases) {
        open({CddsType::TypeCdds, {chainOf("wall.bmp", type, side, side)}});
        show(mode, [&, clicks = clicks, expected = std::string{expected}] {
            click(clicks);
            EXPECT_EQ(state(), expected) << row(static_cast<int>(mode), type, clicks);
            EXPECT_EQ(dialog.List1.currentRow(), 0);
        });
    }
}

TEST_F(Dialog, ShowsTheTextureAndWhatTheModeNeeds) {
    open({CddsType::TypeCdds, {{"caf\xE9.tga", "DXT5", {{256, 128, "x"}, {12345678, 1, "x"}}}}});
    const auto parts = [this] {
        return row(dialog.window.caption(), dialog.FileFormat.caption(), dialog.Mipmaps.caption(),
                   dialog.cmdExtractInsert.caption(), dialog.extractOptionsFrame.visible(),
                   dialog.chkLaunchEditor.visible(), dialog.destinationFrame.visible(),
                   dialog.optMipmaps[Create].visible(), dialog.lblFilter.visible(), dialog.Text1.text());
    };
    session.settings.bazarTempFolder = "/bazar";
    session.settings.cddsBackupFolder = "/safe";
    show(in, [&] {
        EXPECT_EQ(
            parts(),
            "Texture Insertion, Input file format, Mipmap insertion, Insert, false, false, true, true, true, caf\u00E9.tga");
        EXPECT_EQ(row(dialog.chkDestination[0].checked(), dialog.chkSaveCdds.checked(),
                      dialog.txtCDDSBackupFolder.text(), dialog.chkDestination[1].checked(),
                      dialog.txtbazarTempFolder.text(), dialog.lstScaleFilter.lines().at(2),
                      dialog.lstScaleFilter.lines().size(), dialog.lstScaleFilter.selectedRow()),
                  "true, true, /safe, false, /bazar, Bilinear filter, 9, 2");
        EXPECT_EQ(row(dialog.List1.line(0), dialog.List1.line(1)), "    256 x    128 , 12345678 x      1 ");
        dialog.chkOverwriteExistingFiles.setChecked(true);
    });
    show(out, [&] {
        EXPECT_EQ(
            parts(),
            "Texture Extraction, Output file format, Mipmap extraction, Extract, true, true, false, false, false, caf\u00E9.tga");
        EXPECT_FALSE(dialog.chkOverwriteExistingFiles.checked());
        EXPECT_EQ(row(dialog.window.box().left, dialog.window.box().top),
                  row(1000 + (20000 - dialog.window.box().width) / 2,
                      2000 + (15000 - dialog.window.box().height) / 2));
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
        EXPECT_EQ(row(h.dialog.FileFormat.caption(), h.dialog.optOutFileType[0].caption(),
                      h.dialog.Mipmaps.caption(), h.dialog.cmdExtractInsert.caption()),
                  "<file format>, <bmp/tga>, <mipmaps operation>, <mode>");
        EXPECT_TRUE(h.boxes.take().at(0).text.starts_with("ilInit Error Number: "));
    });
    fails = false;
    h.boxes.take();
}

TEST_F(Dialog, AsksForTheBazarTempFolderWhenItHasNone) {
    open({CddsType::TypeCdds, {chainOf("wall.bmp", "DXT1", 2, 2)}});
    std::string& target = session.settings.bazarTempFolder;
    int asked = 0;
    const auto visit = [&](const std::string& before, const std::string& answer) {
        target = before;
        asked = 0;
        chooseBazarTempFolder = [&, answer] {
            ++asked;
            EXPECT_EQ(row(target, dialog.txtbazarTempFolder.text()), ", Invalid Bazar Temporary Folder");
            target = answer;
            dialog.window.activated.emit(); // as the other dialog's close does
        };
        std::string after;
        show(in, [&] {
            click("x1");
            dialog.chkDestination[1].setChecked(true);
            after = row(asked, dialog.chkDestination[1].checked(), dialog.chkDestination[1].enabled(),
                        dialog.txtbazarTempFolder.text(), state());
        });
        return after;
    };
    EXPECT_EQ(visit("", ""), "1, false, true, Invalid Bazar Temporary Folder, dds SE(X)C #. bazar");
    EXPECT_EQ(visit(folder.file("gone"), folder.path()),
              "1, true, true, " + folder.path() + ", dds SE(X)C #. bazar");
    EXPECT_EQ(visit(folder.path(), ""), "0, true, true, " + folder.path() + ", dds SE(X)C #. bazar");
    // The button beside it asks at once, and only while the folder counts.
    chooseSafeCopyFolder = [&] { session.settings.cddsBackupFolder = "/safe"; };
    show(in, [&] {
        dialog.chkDestination[1].setChecked(true);
        chooseBazarTempFolder = [&] {
            target = target.empty() ? "/new" : "";
            dialog.window.activated.emit();
        };
        dialog.cmdGetBazarTempFolder.press();
        EXPECT_EQ(row(dialog.chkDestination[1].checked(), dialog.txtbazarTempFolder.text()), "false, ");
        dialog.cmdGetBazarTempFolder.press();
        dialog.cmdGetCDDSBackupFolder.press();
        click("n");
        EXPECT_FALSE(dialog.cmdGetBazarTempFolder.enabled());
        click("dx1");
        EXPECT_EQ(row(dialog.txtbazarTempFolder.text(), dialog.txtCDDSBackupFolder.text(), state()),
                  "/new, /safe, dds SE(X)C #. bazar");
        EXPECT_TRUE(dialog.cmdGetBazarTempFolder.enabled());
    });
    target.clear();
    asked = 0;
    show(in, [&] {
        EXPECT_EQ(row(asked, dialog.chkDestination[1].checked()), "0, false"); // the reset asked nothing
        dialog.chkDestination[0].setChecked(false);
        EXPECT_FALSE(dialog.chkSaveCdds.checked());
        dialog.chkDestination[0].setChecked(true);
        EXPECT_TRUE(dialog.chkSaveCdds.checked());
    });
}

TEST_F(Dialog, RefusesTypesThatItCannotHandle) {
    open({CddsType::TypeCdds, {chainOf("wall.bmp", "ATI2", 8, 8)}});
    for (const DialogMode mode : {out, in}) {
        for (const char* clicks : {"!", "n!"}) {
            show(mode, [&] { click(clicks); });
            boxes.expect("\"ATI2\"");
        }
    }
    EXPECT_EQ(files(), "");
}

TEST_F(Dialog, NothingOverlapsAtAnySize) {
    open({CddsType::TypeCdds, {chainOf("wall.tga", "DXT5", 8, 8)}});
    const std::vector<const Control*> placed{&dialog.Label1,           &dialog.Text1,
                                             &dialog.FileFormat,       &dialog.Mipmaps,
                                             &dialog.OptionsFrame,     &dialog.extractOptionsFrame,
                                             &dialog.destinationFrame, &dialog.lblWarningTgaInsert,
                                             &dialog.ExtractSummary,   &dialog.cmdExtractInsert,
                                             &dialog.cmdQuit};
    const auto check = [&](const std::string& when) {
        const Box whole{0, 0, dialog.window.box().width, dialog.window.box().height};
        const auto apart = [](const Box& a, const Box& b) {
            return a.left + a.width <= b.left || b.left + b.width <= a.left || a.top + a.height <= b.top ||
                   b.top + b.height <= a.top;
        };
        EXPECT_GT(dialog.ExtractSummary.box().height, 1000) << when;
        for (const Control* a : placed) {
            if (!a->visible()) continue;
            const Box& one = a->box();
            EXPECT_TRUE(one.left >= 0 && one.top >= 0 && one.left + one.width <= whole.width &&
                        one.top + one.height <= whole.height)
                << when << one.top;
            for (const Control* b : placed) {
                if (a != b && b->visible()) {
                    EXPECT_TRUE(apart(one, b->box())) << when << one.top << ' ' << b->box().top;
                }
            }
        }
    };
    for (const auto& [mode, clicks] : {std::pair{out, ""}, {in, ""}, {in, "n"}, {in, "nd"}}) {
        show(mode, [&, clicks = clicks] {
            click(clicks);
            check(clicks);
            dialog.window.setSize(dialog.window.smallestWidth(), dialog.window.smallestHeight());
            check(std::string{clicks} + " smallest ");
            dialog.window.setSize(20000, 12000);
            check(std::string{clicks} + " large ");
        });
    }
}

// Rules that followed each other's changes one by one would nest as deep as the list is long.
TEST_F(Dialog, TakesTheLongestChain) {
    open({CddsType::TypeCdds, {{"long.bmp", "DXT1", std::vector(32767, LevelPlan{1, 1, "12345678"})}}});
    show(in, [&] {
        click("sN");
        EXPECT_EQ(dialog.List1.checkedCount(), 0);
        click("eN0");
        EXPECT_EQ(dialog.List1.checkedCount(), 32767);
    });
}

} // namespace
} // namespace pelrath::test
