#pragma once

#include "archive/reader.hpp"
#include "archive_builder.hpp"
#include "imaging/block_decoder.hpp"
#include "support/answering_desktop.hpp"
#include "support/recording_boxes.hpp"
#include "support/temporary_folder.hpp"
#include "transfer/texture_extraction_insertion.hpp"

namespace pelrath::test {

/// What the user does in the dialog, one thing after another.
constexpr auto cdds = CddsType::TypeCdds;

using Step = std::function<void(TransferControls&)>;
using Steps = std::vector<Step>;

inline void images(TransferControls& dialog) { dialog.optOutFileType[NativeFileType].select(); }
inline void ddsFiles(TransferControls& dialog) { dialog.optOutFileType[DdsFileType].select(); }
inline void single(TransferControls& dialog) { dialog.optMipmaps[Single].select(); }
inline void embedded(TransferControls& dialog) { dialog.optMipmaps[Embedded].select(); }
inline void external(TransferControls& dialog) { dialog.optMipmaps[External].select(); }
inline void create(TransferControls& dialog) { dialog.optMipmaps[Create].select(); }
inline void allLevels(TransferControls& dialog) { dialog.cmdSelAllResolution.press(); }
inline void noLevel(TransferControls& dialog) { dialog.cmdSelNoneResolution.press(); }
inline void overwriting(TransferControls& dialog) { dialog.chkOverwriteExistingFiles.setChecked(true); }
inline void launching(TransferControls& dialog) { dialog.chkLaunchEditor.setChecked(true); }
inline void withSafeCopy(TransferControls& dialog) { dialog.chkSaveCdds.setChecked(true); }
inline void withoutSafeCopy(TransferControls& dialog) { dialog.chkSaveCdds.setChecked(false); }
/// Which takes the mark of the safe copy away as well.
inline void notIntoArchive(TransferControls& dialog) { dialog.chkDestination[ToArchive].setChecked(false); }
inline void intoBazarTemp(TransferControls& dialog) { dialog.chkDestination[ToBazarTemp].setChecked(true); }
inline void run(TransferControls& dialog) { dialog.cmdExtractInsert.press(); }
inline Step mark(int level, bool marked = true) {
    return [=](TransferControls& dialog) { dialog.List1.setChecked(level, marked); };
}
inline Step all(const Steps& steps) {
    return [=](TransferControls& dialog) {
        for (const Step& step : steps) {
            step(dialog);
        }
    };
}
inline Step unmark(int level) { return mark(level, false); }
inline Step filter(int index) {
    return [=](TransferControls& dialog) { dialog.lstScaleFilter.select(index); };
}

/// Lines of an insertion's summary.
inline const std::string noCopy = "No Safe Copy of a.cdds done|";
inline std::string copyLine(int number) {
    return "Safe copy done as copies/a-" + std::to_string(number) + ".cdds|";
}

/// The dialog over an open archive, and the user in front of it. The archive is a.cdds in the folder; images
/// are in its folder "out", safe copies in "copies", loose files in "bazar", and the program's own in
/// "program".
struct TransferHarness {
    explicit TransferHarness(const LibraryFunctions& library = imageLibrary())
        : dialog(session, {boxes, windows, associations, [this] { chooseBazarTempFolder(); },
                           [this] { chooseSafeCopyFolder(); }, recovery, &sign, library}) {
        for (const char* name : {"out", "copies", "bazar", "program"}) {
            folder.makeFolder(name);
        }
        session.programFolder = folder.file("program");
        session.exportImportFolder = folder.file("out");
        session.settings.cddsBackupFolder = folder.file("copies");
        session.settings.bazarTempFolder = folder.file("bazar");
        owner.setBox({1000, 2000, 20000, 15000});
    }
    explicit TransferHarness(ArchiveBuilder builder) : TransferHarness() { open(std::move(builder)); }

    /// Writes the archive, reads it and chooses its first texture.
    void open(ArchiveBuilder builder) {
        session.archivePath = folder.file("a.cdds");
        rewrite(builder.build());
        choose(0);
    }
    /// Gives the archive other bytes and reads it, as the main window does.
    void rewrite(const std::string& bytes) {
        (void)folder.write("a.cdds", bytes);
        const InputFile file{session.archivePath};
        session.archiveFile = ArchiveFile{file};
        session.archive = makeCatalogue(readArchive(file));
    }
    /// Puts another archive with the same tables, as old as this one, in its place.
    void replaceByATwin() const {
        const std::filesystem::path twin = folder.write("twin", outside(archive()));
        std::filesystem::last_write_time(twin, std::filesystem::last_write_time(session.archivePath));
        std::filesystem::rename(twin, session.archivePath);
    }
    void choose(std::int16_t texture) {
        session.selectedTexture = texture;
        session.selectedBaseName = std::string{withoutExtension(chosen().name)};
    }
    [[nodiscard]] const TextureRecord& chosen() const {
        return session.archive.textures[static_cast<std::size_t>(session.selectedTexture)];
    }

    void show(DialogMode mode, const std::function<void()>& user) {
        session.mode = mode;
        windows.answer = user;
        dialog.show(owner);
    }
    void act(const Steps& steps) { all(steps)(dialog); }
    /// What the summary says after these steps and a press on the action button: its line breaks as |, paths
    /// from the folder on.
    std::string after(DialogMode mode, const Steps& steps) {
        show(mode, [&] { act(steps), run(dialog); });
        std::string text = dialog.ExtractSummary.text();
        const auto replaceAll = [&text](const std::string& old, const char* by) {
            for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos;) {
                text.replace(at, old.size(), by);
            }
        };
        replaceAll("\r\n", "|");
        replaceAll(folder.file(""), "");
        return text;
    }
    std::string extract(const Steps& steps) { return after(DialogMode::Extraction, steps); }
    std::string insert(const Steps& steps) { return after(DialogMode::Insertion, steps); }

    [[nodiscard]] std::string files(const std::string& inside = "out") const { return folder.list(inside); }
    [[nodiscard]] std::string archive() const { return folder.read("a.cdds"); }
    [[nodiscard]] std::string levelOf(const std::string& bytes, std::size_t level) const {
        const MipmapRecord& record = chosen().mipmaps[level];
        return bytes.substr(static_cast<std::size_t>(record.dataOffset),
                            static_cast<std::size_t>(record.dataSize));
    }
    /// An archive's bytes with those of the chosen texture's levels blanked out; of the one level, or of all.
    [[nodiscard]] std::string outside(std::string bytes,
                                      std::optional<std::size_t> level = std::nullopt) const {
        for (std::size_t i = 0; i < chosen().mipmaps.size(); ++i) {
            const auto size = static_cast<std::size_t>(chosen().mipmaps[i].dataSize);
            if (level.value_or(i) == i)
                bytes.replace(static_cast<std::size_t>(chosen().mipmaps[i].dataOffset), size,
                              std::string(size, '#'));
        }
        return bytes;
    }
    /// Largest difference of a channel between two states of a level.
    [[nodiscard]] int difference(const std::string& before, const std::string& after,
                                 std::size_t level) const {
        const auto texels = [&](const std::string& bytes) {
            const std::string blocks = levelOf(bytes, level);
            const auto width = static_cast<std::uint32_t>(chosen().mipmaps[level].width),
                       height = static_cast<std::uint32_t>(chosen().mipmaps[level].height);
            std::string decoded(std::size_t{width} * height * 4, '\0');
            decodeLevel(chosen().fourCC == "DXT1" ? BlockFormat::Dxt1 : BlockFormat::Dxt5,
                        std::as_bytes(std::span{blocks}), width, height,
                        std::as_writable_bytes(std::span{decoded}));
            return decoded;
        };
        return test::difference(texels(before), texels(after));
    }

    TemporaryFolder folder;
    Session session;
    RecordingBoxes boxes;
    AnsweringWindows windows;
    RecordingAssociations associations;
    RecordingSign sign;
    Window owner;
    std::function<void()> chooseBazarTempFolder = [] {}, chooseSafeCopyFolder = [] {};
    InsertionRecovery recovery{boxes, session};
    TextureExtractionInsertion dialog;
};

} // namespace pelrath::test
