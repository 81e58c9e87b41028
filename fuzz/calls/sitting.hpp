#pragma once

#include "mainwindow/main_harness.hpp"
#include "transfer/transfer_harness.hpp"

#include <functional>
#include <string>
#include <utility>

namespace pelrath::calls {

/// The program's own dialogs, with a user who answers at once; what they were opened from is activated behind
/// them.
class AnsweredDialogs : public ModalWindows {
public:
    void showModal(Window& window) override {
        window.activated.emit();
        // A dialog out of a dialog is closed as it comes up.
        if (const auto once = std::exchange(answer, nullptr)) once();
        window.unload();
        if (returned) returned();
    }
    std::function<void()> answer, returned;
};

/// Message boxes that are told of and answered with Ok.
class ToldBoxes : public MessageBoxes {
public:
    BoxAnswer show(const std::string& text, const std::string& title, BoxIcon icon,
                   BoxButtons buttons) override {
        if (told) told({text, title, icon, buttons});
        return BoxAnswer::Ok;
    }
    std::function<void(const test::ShownBox&)> told;
};

/// One sitting of a user at the whole program but its face. In its folder are the archive a.cdds and the
/// folders out (sources of insertions), extracted, copies (safe ones), bazar and program.
class Sitting {
public:
    explicit Sitting(std::string folder, const std::string& programFolder = "program");

    /// As far as the first activation, and until the folders of a program that died are cleared.
    void start();
    /// A second call reads the archive anew.
    void open(const std::string& archive = "a.cdds");
    void choose(int texture) { main.Output[TexturePane].setSelected(texture, true); }
    /// What the summary says after these steps and the action button in the texture's dialog.
    std::string extract(const test::Steps& steps) { return transfer(main.cmdExtract, "extracted", steps); }
    std::string insert(const test::Steps& steps) { return transfer(main.cmdInsert, "out", steps); }
    void quit() { main.queryUnload(); }

    [[nodiscard]] std::string file(const std::string& name) const { return folder_ + "/" + name; }

    Session session;
    ToldBoxes boxes;
    test::FakeSurface surface;

private:
    std::string transfer(CommandButton& button, const std::string& folder, const test::Steps& steps);

    std::string folder_;
    test::AnsweringFileOpen fileOpen_;
    test::ScriptedPump pump_;
    test::FixedScreen screen_;
    AnsweredDialogs windows_;
    test::RecordingAssociations associations_;
    test::RecordingSign busy_;
    test::ScriptedPicker folderPicker_;
    test::CalledWatch watch_;
    test::ImmediateWork background_;

public:
    Main main{session,
              {boxes, fileOpen_, pump_, screen_, surface, windows_, associations_, busy_, folderPicker_,
               watch_, background_}};
};

/// The steps that words name: dds, images, single, embedded, external, create, level=N, filter=N, nocopy,
/// noarchive, bazar. Throws std::invalid_argument for any other word.
test::Step stepOf(const std::string& word);

/// Makes the folder of a sitting. The archive has three textures with whole chains, `side` texels wide and
/// high: 0 is "roof.bmp" (DXT1), 1 "wall.tga" (DXT5, its levels out of order and with gaps), 2 "other.bmp".
/// out/ has for the first two all that can be inserted into them, in the DDS files with every byte of a level
/// other than the archive's. In extracted/ and bazar/ are older files in the place of the images of level 0.
void prepare(const std::string& folder, int side);

} // namespace pelrath::calls
