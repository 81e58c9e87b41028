#pragma once

#include "archive_builder.hpp"
#include "mainwindow/main.hpp"
#include "support/answering_desktop.hpp"
#include "support/fake_device.hpp"
#include "support/fake_watch.hpp"
#include "support/recording_boxes.hpp"
#include "support/scripted_picker.hpp"
#include "support/temporary_folder.hpp"

#include "platform/text.hpp"

#include <filesystem>

namespace pelrath::test {

/// 96 dots an inch, and 8 pixels a character.
class FixedScreen : public Screen {
public:
    [[nodiscard]] double twipsPerPixel() const override { return 15; }
    [[nodiscard]] double width() const override { return 19200; }
    [[nodiscard]] double height() const override { return 12000; }
    [[nodiscard]] double textWidth(std::string_view text) const override {
        return 120.0 * static_cast<double>(characterCount(text));
    }
};

class AnsweringFileOpen : public FileOpenDialog {
public:
    std::optional<std::string> choose(const Request& request) override {
        asked = request;
        return answer;
    }
    Request asked;
    std::optional<std::string> answer;
};

/// The main window with everything around it, and the user in front of it.
struct MainHarness {
    MainHarness() {
        session.programFolder = folder.path();
        // Not the first run.
        (void)folder.write("Pelrath.ini", "[Setup]\nfirsttimedone=True\n");
    }

    /// As far as the first activation.
    void start() {
        main.load();
        main.window.setFrame(100, 350);
        main.layOut();
        main.activate();
    }
    void open(ArchiveBuilder builder) {
        fileOpen.answer = folder.write("a.cdds", builder.build());
        main.Command1.press();
    }
    void choose(int texture) { main.Output[TexturePane].setSelected(texture, true); }
    [[nodiscard]] bool has(const std::string& name) const { return folder.has(name); }

    // A key as the box's widget handles it: seen by the reactions first, then acting on the text.
    void type(std::u32string_view keys) {
        for (const char32_t key : keys) {
            TextBox& box = main.incrementalSearchText;
            KeyDown down;
            box.keyDown.emit(down);
            box.keyPress.emit(key);
            std::size_t start = box.selectionStart();
            const std::size_t end = start + box.selectionLength();
            const std::string after = box.text().substr(bytesOfCharacters(box.text(), end));
            if (key == backspaceKey && end == start && start > 0) --start;
            const std::string before{firstCharacters(box.text(), start)};
            if (key == backspaceKey) {
                box.edit(before + after, start, 0);
            } else {
                box.edit(before + static_cast<char>(key) + after, start + 1, 0);
            }
        }
    }
    bool press(KeyCode code, bool modified = false) {
        KeyDown key{code, modified, false};
        main.incrementalSearchText.keyDown.emit(key);
        return key.consumed;
    }

    TemporaryFolder folder, temporary;
    TemporaryFilesIn temporaryFiles{temporary.path()};
    Session session;
    RecordingBoxes boxes;
    AnsweringFileOpen fileOpen;
    ScriptedPump pump;
    FixedScreen screen;
    FakeSurface surface;
    AnsweringWindows windows;
    RecordingAssociations associations;
    RecordingSign busy;
    ScriptedPicker folderPicker;
    CalledWatch watch;
    ImmediateWork background;
    Main main{session,
              {boxes, fileOpen, pump, screen, surface, windows, associations, busy, folderPicker, watch,
               background}};
};

/// Textures of one DXT1 level each, by name.
inline ArchiveBuilder archiveOf(const std::vector<std::string>& names, CddsType type = CddsType::TypeCdds) {
    ArchiveBuilder builder{type};
    for (const std::string& name : names) {
        builder.textures.push_back({name, "DXT1", {{4, 4, "12345678"}}});
    }
    return builder;
}

} // namespace pelrath::test
