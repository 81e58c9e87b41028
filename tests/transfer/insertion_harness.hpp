#pragma once

#include "archive/reader.hpp"
#include "imaging/block_decoder.hpp"
#include "support/answering_desktop.hpp"
#include "support/archive_builder.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"
#include "transfer/texture_extraction_insertion.hpp"

namespace pelrath::test {

constexpr std::uint16_t yellow = 0xFFE0, blue = 0x001F; // 5-6-5

/// A texture with its whole chain: each level `top` in its upper half and `bottom` in its lower one as far as its size lets it, in DXT5 with alpha
/// 77 above and 255 below.
inline TexturePlan chainOf(const std::string& name, const std::string& type, std::int32_t width, std::int32_t height, std::uint16_t top = yellow,
                           std::uint16_t bottom = blue) {
    TexturePlan plan{name, type, {}};
    for (bool last = false; !last; width = std::max(1, width / 2), height = std::max(1, height / 2)) {
        std::string blocks;
        for (std::int32_t y = 0; y < height; y += 4) {
            std::int64_t colors = bottom > top ? 0x55555555 : 0; // the larger colour stands first: then there are four, and none transparent
            std::int64_t alphas = 0;
            for (std::int32_t line = 0; line < 4; ++line) {
                if (2 * (y + line) < height) continue;
                colors ^= std::int64_t{0x55} << (8 * line);
                alphas |= std::int64_t{01111} << (12 * line);
            }
            const std::string alpha = type == "DXT5" ? little(77, 1) + little(255, 1) + little(alphas, 6) : "";
            const std::string color = little(std::max(top, bottom), 2) + little(std::min(top, bottom), 2) + little(colors, 4);
            for (std::int32_t x = 0; x < width; x += 4) { blocks += alpha + color; }
        }
        plan.levels.push_back({width, height, blocks});
        last = width == 1 && height == 1;
    }
    return plan;
}

/// An open archive with the dialog over it: images, safe copies, loose files and the program's own in a folder each.
class InsertionHarness {
public:
    explicit InsertionHarness(const LibraryFunctions& library = imageLibrary())
        : dialog(session, {boxes, windows, associations, [] {},
                           [this] {
                               ++foldersAsked;
                               session.settings.cddsBackupFolder = chosenFolder;
                           },
                           &sign, library}) {
        session.programFolder = program.path();
        session.exportImportFolder = images.path();
        session.settings.cddsBackupFolder = copies.path();
        session.settings.bazarTempFolder = bazar.path();
    }
    explicit InsertionHarness(ArchiveBuilder builder) : InsertionHarness() { open(std::move(builder)); }

    /// Writes the archive and reads it, as the main window does.
    void open(ArchiveBuilder builder) {
        session.archivePath = folder.write("a.cdds", builder.build());
        session.archive = catalogue();
        session.archiveFile = {session.archivePath, std::filesystem::file_size(session.archivePath)};
        choose(0);
    }
    [[nodiscard]] CddsArchive catalogue() const {
        const ArchiveContents contents = readArchive(session.archivePath);
        if (const auto* tables = std::get_if<Tables0C>(&contents)) return makeCatalogue(*tables);
        return makeCatalogue(std::get<TablesCdds>(contents));
    }
    void choose(std::int16_t texture) {
        session.selectedTexture = texture;
        session.selectedBaseName = std::string{withoutExtension(chosen().name)};
    }
    [[nodiscard]] const TextureRecord& chosen() const { return session.archive.textures[static_cast<std::size_t>(session.selectedTexture)]; }
    [[nodiscard]] std::string archive() const { return folder.read("a.cdds"); }

    /// Opens the dialog, makes the choices, presses the action button, and answers the summary.
    std::string run(DialogMode mode, FileTypeOption kind, const std::function<void()>& choices) {
        session.mode = mode;
        std::string summary;
        windows.answer = [&] {
            dialog.optOutFileType[kind].select();
            choices();
            dialog.cmdExtractInsert.press();
            summary = dialog.ExtractSummary.text();
        };
        dialog.show(owner);
        return summary;
    }
    std::string insert(
        FileTypeOption kind, MipmapOperation operation, const std::function<void()>& more = [] {}) {
        return run(DialogMode::Insertion, kind, [&] {
            dialog.optMipmaps[operation].select();
            more();
        });
    }
    /// Without a safe copy, of these levels.
    std::string insertLevels(FileTypeOption kind, MipmapOperation operation, const std::vector<int>& levels) {
        return insert(kind, operation, [&] {
            for (int i = 0; i < dialog.List1.count(); ++i) { dialog.List1.setChecked(i, false); }
            for (const int i : levels) { dialog.List1.setChecked(i, true); }
            dialog.chkSaveCdds.setChecked(false);
        });
    }
    void extract(FileTypeOption kind, MipmapOperation operation = Single, int level = 0) {
        run(DialogMode::Extraction, kind, [&] {
            if (kind == DdsFileType) dialog.optMipmaps[operation].select();
            dialog.List1.setChecked(level, true);
            dialog.chkOverwriteExistingFiles.setChecked(true);
        });
    }

    /// First lines of a summary.
    [[nodiscard]] std::string noCopy() const { return "No Safe Copy of " + session.archivePath + " done\r\n"; }
    [[nodiscard]] std::string copyLine(int number) const { return "Safe copy done as " + copies.file("a-" + std::to_string(number)) + ".cdds\r\n"; }

    [[nodiscard]] std::string levelOf(const std::string& bytes, std::size_t level) const {
        const MipmapRecord& record = chosen().mipmaps[level];
        return bytes.substr(static_cast<std::size_t>(record.dataOffset), static_cast<std::size_t>(record.dataSize));
    }
    /// An archive's bytes with those of the chosen texture's levels blanked out; of the one level, or of all.
    [[nodiscard]] std::string outside(std::string bytes, std::optional<std::size_t> level = std::nullopt) const {
        for (std::size_t i = 0; i < chosen().mipmaps.size(); ++i) {
            const auto size = static_cast<std::size_t>(chosen().mipmaps[i].dataSize);
            if (level.value_or(i) == i) bytes.replace(static_cast<std::size_t>(chosen().mipmaps[i].dataOffset), size, std::string(size, '#'));
        }
        return bytes;
    }
    /// Largest difference of a channel between two states of a level.
    [[nodiscard]] int difference(const std::string& before, const std::string& after, std::size_t level) const {
        const auto width = static_cast<std::uint32_t>(chosen().mipmaps[level].width),
                   height = static_cast<std::uint32_t>(chosen().mipmaps[level].height);
        std::vector<std::byte> texels[2]{std::vector<std::byte>(std::size_t{width} * height * 4),
                                         std::vector<std::byte>(std::size_t{width} * height * 4)};
        for (std::size_t i = 0; i < 2; ++i) {
            const std::string blocks = levelOf(i == 0 ? before : after, level);
            decodeLevel(chosen().fourCC == "DXT1" ? BlockFormat::Dxt1 : BlockFormat::Dxt5, std::as_bytes(std::span{blocks}), width, height,
                        texels[i]);
        }
        int largest = 0;
        for (std::size_t i = 0; i < texels[0].size(); ++i) {
            largest = std::max(largest, std::abs(std::to_integer<int>(texels[0][i]) - std::to_integer<int>(texels[1][i])));
        }
        return largest;
    }

    TemporaryFolder folder, images, copies, bazar, program;
    Session session;
    RecordingBoxes boxes;
    AnsweringWindows windows;
    RecordingAssociations associations;
    RecordingSign sign;
    Window owner;
    std::string chosenFolder; ///< for safe copies, when the user is asked
    int foldersAsked = 0;
    TextureExtractionInsertion dialog;
};

} // namespace pelrath::test
