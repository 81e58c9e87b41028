#include "transfer/image_insertion.hpp"

#include "platform/files.hpp"
#include "platform/leftovers.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/image_library_use.hpp"
#include "transfer/insertion_attempt.hpp"

namespace pelrath {

namespace {

constexpr const char* lineBreak = "\r\n";

std::string builtFileOf(const std::string& source) {
    std::string name{withoutExtension(fileName(source))};
    return joinPath(parentFolder(source), name.append(builtFileEnd));
}

} // namespace

ImageInsertion::ImageInsertion(const Controls& controls, MessageBoxes& boxes, const Session& session,
                               const TransferState& state, const TransferImaging& imaging, SafeCopy& safeCopy,
                               ReadOnlyArchive& readOnly)
    : c_(controls), boxes_(boxes), session_(session), state_(state), imaging_(imaging), safeCopy_(safeCopy),
      readOnly_(readOnly), builder_(imaging, session.programFolder) {}

void ImageInsertion::performSimpleImageInsertion(ImageFileKind kind, HeldArchive& archive) {
    summary_.clear();
    showSummary();
    const std::optional<Choice> choice = choose();
    std::optional<FolderLock> folder;
    if (choice && !mayBegin(archive, folder)) {
        summary_ += "Insertion canceled.";
        showSummary();
        return;
    }
    LevelWriter writer{archive};
    if (choice) {
        insertGuarded(kind, *choice, archive, writer);
    } else {
        summary_ += std::string{"No mipmap selected."} + lineBreak;
    }
    summary_ += std::to_string(writer.written()) + " mipmaps(s) inserted.";
    showSummary();
}

std::optional<ImageInsertion::Choice> ImageInsertion::choose() const {
    if (state_.mipmapOperation == Create) return Choice{0, true, LevelWriter::everyLevel};
    const auto level = static_cast<std::int16_t>(c_.List1.lastCheckedRow());
    if (level < 0) return std::nullopt;
    return Choice{level, false, level};
}

bool ImageInsertion::mayBegin(HeldArchive& archive, std::optional<FolderLock>& folder) {
    const auto begin = [&] {
        archive.requireTables();
        folder.emplace(session_.exportImportFolder, session_.programFolder);
        removeHiddenLeftovers(session_.exportImportFolder);
        removeBuiltLeftovers(*folder);
    };
    if (!attemptInsertion(boxes_, begin)) return false;
    const bool safe = safeCopy_.makeSafeCopy(archive, summary_);
    showSummary();
    return safe;
}

void ImageInsertion::insertGuarded(ImageFileKind kind, const Choice& choice, HeldArchive& archive,
                                   LevelWriter& writer) {
    if (!readOnly_.handleReadOnlyArchive(ReadOnlyArchive::BeforeWriting, archive, summary_)) return;
    showSummary();
    std::optional<ScratchFile> built;
    attemptInsertion(boxes_, [&] { insertImage(kind, choice, writer, built); });
    if (built) attemptInsertion(boxes_, [&] { built->remove(); });
    readOnly_.handleReadOnlyArchive(ReadOnlyArchive::AfterWriting, archive, summary_);
}

void ImageInsertion::insertImage(ImageFileKind kind, const Choice& choice, LevelWriter& writer,
                                 std::optional<ScratchFile>& built) {
    const std::string source = buildImageFileName(session_, choice.firstLevel, kind);
    summary_ += source + lineBreak;
    if (!imaging_.use.start()) return;
    LoadedImage image{imaging_.facade, imaging_.images, source};
    if (!image) {
        boxes_.critical("LoadImage " + source + " error", "SimpleImageInsertion");
        return;
    }
    if (!chooseFormat()) return;
    built.emplace(builtFileOf(source));
    try {
        if (!build(built->path(), image.id())) return;
        writer.writeMipmapLevels(built->path(), session_.selectedTexture, choice.chained,
                                 choice.selectedLevel);
    } catch (const SourceTooShort&) {
        summary_ += source + " is too short." + lineBreak; // the image is: it gives too little data
    }
    if (writer.written() == 0) {
        boxes_.critical("Error during insertion in CDDS.", "performSimpleImageInsertion");
    }
    image.remove();
}

bool ImageInsertion::chooseFormat() {
    const DdsExport dds{session_.archive, session_.archivePath, session_.archiveFile};
    const auto native = dds.nativeImageKind(session_.selectedTexture);
    const OutputFileType type =
        native && native->kind == ImageFileKind::Bmp ? OutputFileType::DdsDxt1 : OutputFileType::DdsDxt5;
    return imaging_.facade.setSaveImageOptions(static_cast<std::int32_t>(type), imaging_.options.imageType,
                                               imaging_.options.extension);
}

bool ImageInsertion::build(const std::string& path, std::uint32_t image) {
    const int filter = c_.lstScaleFilter.selectedRow();
    if (state_.mipmapOperation != Create || filter == bilinearFilter) {
        return builder_.buildWithLibraryChain(path);
    }
    const auto texture = static_cast<std::size_t>(session_.selectedTexture);
    return builder_.buildScaled(path, image, session_.archive.textures.at(texture).mipmaps,
                                static_cast<std::int16_t>(filter));
}

void ImageInsertion::showSummary() { c_.ExtractSummary.setText(summary_); }

} // namespace pelrath
