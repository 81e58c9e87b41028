#pragma once

#include "archive/reader.hpp"
#include "support/answering_desktop.hpp"
#include "support/archive_builder.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"
#include "transfer/texture_extraction_insertion.hpp"

#include <algorithm>

namespace pelrath::test {

/// The dialog over an archive of its own, and the user in front of it.
struct DialogHarness {
    DialogHarness() {
        std::filesystem::create_directory(folder.file("program"));
        std::filesystem::create_directory(folder.file("out"));
        session.programFolder = folder.file("program");
        session.exportImportFolder = folder.file("out");
        owner.setBox({1000, 2000, 20000, 15000});
    }

    /// Makes the archive the open one, with its first texture chosen.
    void use(ArchiveBuilder builder) {
        session.archivePath = folder.write("a.cdds", builder.build());
        session.archive = makeCatalogue(std::get<TablesCdds>(readArchive(session.archivePath)));
        session.selectedTexture = 0;
        session.selectedBaseName = withoutExtension(session.archive.textures[0].name);
    }
    void open(DialogMode mode, const std::function<void()>& work) {
        session.mode = mode;
        windows.answer = work;
        dialog.show(owner);
    }
    /// n and d choose the file kind, s e x c the operation, a digit turns a mark over, A and N are the buttons; ! runs.
    void click(const std::string& clicks) {
        const std::string operations = "sexc";
        for (const char letter : clicks) {
            if (const std::size_t i = operations.find(letter); i != std::string::npos) dialog.optMipmaps[i].select();
            if (letter == 'n' || letter == 'd') dialog.optOutFileType[letter == 'n' ? 0 : 1].select();
            if (letter >= '0' && letter <= '9') dialog.List1.setChecked(letter - '0', !dialog.List1.isChecked(letter - '0'));
            if (letter == 'A') dialog.cmdSelAllResolution.press();
            if (letter == 'N') dialog.cmdSelNoneResolution.press();
            if (letter == 'o') dialog.chkOverwriteExistingFiles.setChecked(!dialog.chkOverwriteExistingFiles.checked());
            if (letter == '!') dialog.cmdExtractInsert.press();
        }
    }
    /// The summary, line breaks as |, the folder as nothing.
    [[nodiscard]] std::string summary() const {
        std::string text = dialog.ExtractSummary.text();
        for (std::size_t at = 0; (at = text.find(folder.file("out/"))) != std::string::npos;) text.erase(at, folder.file("out/").size());
        for (std::size_t at = 0; (at = text.find("\r\n")) != std::string::npos;) text.replace(at, 2, "|");
        return text;
    }
    [[nodiscard]] std::string files() const {
        std::string names;
        for (const std::string& name : folder.names("out")) { names += (names.empty() ? "" : " ") + name; }
        return names;
    }

    TemporaryFolder folder;
    Session session;
    RecordingBoxes boxes;
    AnsweringWindows windows;
    RecordingAssociations associations;
    Window owner;
    std::function<void()> chooseFolder = [] {};
    TextureExtractionInsertion dialog{session, {boxes, windows, associations, [this] { chooseFolder(); }, [] {}}};
};

/// Blocks of one colour, given as 5-6-5; those of DXT5 are half transparent.
inline std::string colorBlocks(const std::string& type, std::int32_t width, std::int32_t height, std::uint16_t color) {
    std::string blocks;
    for (std::int32_t i = 0; i < ((width + 3) / 4) * ((height + 3) / 4); ++i) {
        blocks += (type == "DXT5" ? bytesOf("8080 6*00") : "") + little(color, 8);
    }
    return blocks;
}

/// A texture with a chain of square levels from `side` down, each of one colour.
inline TexturePlan chain(const std::string& name, const std::string& type, std::int32_t side, int levels) {
    TexturePlan plan{name, type, {}};
    for (int i = 0; i < levels; ++i, side = std::max(side / 2, 1)) {
        plan.levels.push_back({side, side, colorBlocks(type, side, side, static_cast<std::uint16_t>(0x1111 * (i + 1)))});
    }
    return plan;
}

} // namespace pelrath::test
