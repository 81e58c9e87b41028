#pragma once

#include "archive/reader.hpp"
#include "imaging/block_decoder.hpp"
#include "support/archive_builder.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"
#include "transfer/texture_extraction_insertion.hpp"

#include <random>

namespace pelrath::test {

/// The user of the dialog: acts once it is up, then closes it.
class DialogUser : public ModalWindows {
public:
    void showModal(Window& window) override {
        window.activated.emit();
        acts();
        window.unload();
    }
    std::function<void()> acts;
};

class NoAssociations : public FileAssociations {
public:
    [[nodiscard]] std::string executableFor(const std::string& /*file*/) override { return {}; }
    void open(const std::string& /*file*/) override {}
};

class RecordingSign : public BusySign {
public:
    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override { seen += what + " " + row(done, total) + "; "; }
    void clear() override { seen += "clear"; }
    std::string seen;
};

/// Blocks of a picture that is `top` in its upper half and `bottom` in its lower one, as far as its size lets it; both 5-6-5, in DXT5 with alpha
/// `topAlpha` and 255.
inline std::string twoHalves(const std::string& type, std::int32_t width, std::int32_t height, std::uint16_t top, std::uint16_t bottom,
                             std::uint8_t topAlpha = 255) {
    std::string blocks;
    for (std::int32_t y = 0; y < height; y += 4) {
        std::uint64_t alphas = 0;
        std::uint32_t colors = 0;
        for (std::int32_t row = 0; row < 4; ++row) {
            const bool lower = 2 * (y + row) >= height;
            colors |= (lower ? 0x55U : 0U) << (8 * row);
            alphas |= std::uint64_t{lower ? 01111U : 0U} << (12 * row);
        }
        if (bottom > top) colors ^= 0x55555555U; // the first colour is the larger one: four of them and no transparency
        const std::string color = little(std::max(top, bottom), 2) + little(std::min(top, bottom), 2) + little(colors, 4);
        const std::string alpha = type == "DXT5" ? little(topAlpha, 1) + little(255, 1) + little(static_cast<std::int64_t>(alphas), 6) : "";
        for (std::int32_t x = 0; x < width; x += 4) { blocks += alpha + color; }
    }
    return blocks;
}

/// A texture with its whole chain of such pictures.
inline TexturePlan chainOf(const std::string& name, const std::string& type, std::int32_t width, std::int32_t height, std::uint16_t top,
                           std::uint16_t bottom, std::uint8_t topAlpha = 255) {
    TexturePlan plan{name, type, {}};
    while (true) {
        plan.levels.push_back({width, height, twoHalves(type, width, height, top, bottom, topAlpha)});
        if (width == 1 && height == 1) return plan;
        width = std::max(1, width / 2);
        height = std::max(1, height / 2);
    }
}

/// An open archive with the dialog over it: images, safe copies, loose files and the program's own in folders of their own.
class InsertionHarness {
public:
    explicit InsertionHarness(const LibraryFunctions& library = imageLibrary())
        : dialog(session, {boxes, user, associations, [] {}, library, [this] { chooseSafeCopyFolder(); }, &sign}) {
        for (const char* name : {"images", "copies", "bazar", "program"}) { std::filesystem::create_directory(folder.file(name)); }
        session.programFolder = folder.file("program");
        session.exportImportFolder = folder.file("images");
        session.settings.cddsBackupFolder = folder.file("copies");
        session.settings.bazarTempFolder = folder.file("bazar");
    }

    /// Writes the archive and reads it, as the main window does.
    void open(ArchiveBuilder builder) {
        session.archivePath = folder.write("a.cdds", builder.build());
        read();
    }
    void read() {
        const ArchiveContents contents = readArchive(session.archivePath);
        if (const auto* tables = std::get_if<Tables0C>(&contents)) session.archive = makeCatalogue(*tables);
        if (const auto* tables = std::get_if<TablesCdds>(&contents)) session.archive = makeCatalogue(*tables);
        session.archiveFile = {session.archivePath, std::filesystem::file_size(session.archivePath)};
        choose(0);
    }
    void choose(std::int16_t texture) {
        session.selectedTexture = texture;
        session.selectedBaseName = std::string{withoutExtension(chosen().name)};
    }
    [[nodiscard]] const TextureRecord& chosen() const { return session.archive.textures[static_cast<std::size_t>(session.selectedTexture)]; }

    /// Opens the dialog, makes the choices, presses the action button, and answers the summary.
    std::string run(DialogMode mode, FileTypeOption kind, const std::function<void()>& choices) {
        session.mode = mode;
        std::string summary;
        user.acts = [&] {
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
    std::string extract(FileTypeOption kind, MipmapOperation operation, int level = 0) {
        return run(DialogMode::Extraction, kind, [&] {
            if (kind == DdsFileType) dialog.optMipmaps[operation].select();
            dialog.List1.setChecked(level, true);
            dialog.chkOverwriteExistingFiles.setChecked(true);
        });
    }
    void check(const std::vector<int>& levels) {
        for (int row = 0; row < dialog.List1.count(); ++row) { dialog.List1.setChecked(row, false); }
        for (const int row : levels) { dialog.List1.setChecked(row, true); }
    }

    [[nodiscard]] std::string archive() const { return folder.read("a.cdds"); }
    [[nodiscard]] std::string image(const std::string& name) const { return folder.file("images/" + name); }
    [[nodiscard]] std::string names(const std::string& inFolder) const {
        std::string all;
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator{folder.file(inFolder)}) { found.push_back(entry.path().filename()); }
        std::sort(found.begin(), found.end());
        for (const std::string& name : found) { all += (all.empty() ? "" : " ") + name; }
        return all;
    }
    /// "No Safe Copy" or the safe copy's line.
    [[nodiscard]] std::string noCopy() const { return "No Safe Copy of " + session.archivePath + " done\r\n"; }
    [[nodiscard]] std::string copyLine(int number) const {
        return "Safe copy done as " + folder.file("copies/a-" + std::to_string(number)) + ".cdds\r\n";
    }
    [[nodiscard]] std::string levelOf(const std::string& bytes, std::size_t level) const {
        const MipmapRecord& record = chosen().mipmaps[level];
        return bytes.substr(static_cast<std::size_t>(record.dataOffset), static_cast<std::size_t>(record.dataSize));
    }
    /// The archive's bytes with what belongs to the chosen texture's levels blanked out.
    [[nodiscard]] std::string outside(std::string bytes, const std::vector<std::size_t>& levels) const {
        for (const std::size_t level : levels) {
            const MipmapRecord& record = chosen().mipmaps[level];
            bytes.replace(static_cast<std::size_t>(record.dataOffset), static_cast<std::size_t>(record.dataSize),
                          std::string(static_cast<std::size_t>(record.dataSize), '#'));
        }
        return bytes;
    }
    /// Largest difference of a channel between two states of a level.
    [[nodiscard]] int difference(const std::string& before, const std::string& after, std::size_t level) const {
        const MipmapRecord& record = chosen().mipmaps[level];
        const auto width = static_cast<std::uint32_t>(record.width);
        const auto height = static_cast<std::uint32_t>(record.height);
        std::vector<std::byte> texels[2];
        for (std::size_t i = 0; i < 2; ++i) {
            const std::string blocks = levelOf(i == 0 ? before : after, level);
            texels[i].resize(std::size_t{width} * height * 4);
            decodeLevel(chosen().fourCC == "DXT1" ? BlockFormat::Dxt1 : BlockFormat::Dxt5, std::as_bytes(std::span{blocks}), width, height,
                        texels[i]);
        }
        int largest = 0;
        for (std::size_t i = 0; i < texels[0].size(); ++i) {
            largest = std::max(largest, std::abs(std::to_integer<int>(texels[0][i]) - std::to_integer<int>(texels[1][i])));
        }
        return largest;
    }

    TemporaryFolder folder;
    Session session;
    RecordingBoxes boxes;
    DialogUser user;
    NoAssociations associations;
    RecordingSign sign;
    Window owner;
    std::string chosenFolder; ///< what the user picks when asked for one
    int foldersAsked = 0;
    TextureExtractionInsertion dialog;

private:
    void chooseSafeCopyFolder() {
        ++foldersAsked;
        session.settings.cddsBackupFolder = chosenFolder;
    }
};

} // namespace pelrath::test
