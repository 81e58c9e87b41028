#include "transfer/image_insertion.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/leftovers.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/image_library_use.hpp"

namespace pelrath {

namespace {

constexpr const char* lineBreak = "\r\n";

} // namespace

ImageInsertion::ImageInsertion(const Controls& controls, MessageBoxes& boxes, const Session& session,
                               const TransferState& state, const TransferImaging& imaging)
    : c_(controls), boxes_(boxes), session_(session), state_(state), imaging_(imaging),
      builder_(imaging, session.programFolder) {}

void ImageInsertion::performSimpleImageInsertion(ImageFileKind kind, InsertionRun& run) {
    std::optional<FolderLock> folder;
    const auto check = [&] {
        run.archive().requireTables();
        takeFolder(folder);
    };
    if (choose() && !run.begin(check)) return;
    insertImage(kind, run);
}

void ImageInsertion::insertImage(ImageFileKind kind, InsertionRun& run) {
    LevelWriter writer{run.archive()};
    if (const std::optional<Choice> choice = choose()) {
        insertChosen(kind, *choice, run, writer);
    } else {
        run.say(std::string{"No mipmap selected."} + lineBreak);
    }
    run.say(std::to_string(writer.written()) + " mipmaps(s) inserted.");
}

std::optional<ImageInsertion::Choice> ImageInsertion::choose() const {
    if (state_.mipmapOperation == Create) return Choice{0, true, LevelWriter::everyLevel};
    const auto level = static_cast<std::int16_t>(c_.List1.lastCheckedRow());
    if (level < 0) return std::nullopt;
    return Choice{level, false, level};
}

std::string ImageInsertion::builtFileOf(const std::string& source) const {
    if (!isAlone_) {
        std::string own = session_.programFolder.privatePathFor(temporaryNames[1]);
        if (!own.empty()) return own;
    }
    std::string name{withoutExtension(fileName(source))};
    return joinPath(parentFolder(source), name.append(builtFileEnd));
}

void ImageInsertion::takeFolder(std::optional<FolderLock>& folder) {
    folder.emplace(session_.exportImportFolder, session_.programFolder);
    isAlone_ = folder->isCertain();
    removeHiddenLeftovers(session_.exportImportFolder);
    removeBuiltLeftovers(*folder);
}

void ImageInsertion::insertChosen(ImageFileKind kind, const Choice& choice, InsertionRun& run,
                                  LevelWriter& writer) {
    const InsertionRun::WritePermission permission{run};
    if (!permission) return;
    std::optional<ScratchFile> built;
    run.attempt([&] { buildAndWrite(kind, choice, run, writer, built); });
    if (built) run.attempt([&] { built->remove(); });
}

void ImageInsertion::buildAndWrite(ImageFileKind kind, const Choice& choice, InsertionRun& run,
                                   LevelWriter& writer, std::optional<ScratchFile>& built) {
    const std::string source = buildImageFileName(session_, choice.firstLevel, kind);
    run.say(source + lineBreak);
    if (!imaging_.use.start()) return;
    LoadedImage image{imaging_.facade, imaging_.images, source};
    if (!image) {
        boxes_.critical("LoadImage " + source + " error", "SimpleImageInsertion");
        return;
    }
    if (!builder_.chooseFormat(session_.chosenTexture())) return;
    built.emplace(builtFileOf(source));
    try {
        if (!build(built->path(), image.id(), choice, run.archive())) return;
        writer.writeMipmapLevels(built->path(), session_.selectedTexture, choice.chained,
                                 choice.selectedLevel);
    } catch (const SourceTooShort&) {
        run.say(source + " is too short." + lineBreak); // the image is: it gives too little data
    }
    if (writer.written() == 0) {
        boxes_.critical("Error during insertion in CDDS.", "performSimpleImageInsertion");
    }
    image.remove();
}

bool ImageInsertion::build(const std::string& path, std::uint32_t image, const Choice& choice,
                           HeldArchive& archive) {
    const int filter = c_.lstScaleFilter.selectedRow();
    if (state_.mipmapOperation == Create && filter != bilinearFilter) {
        return builder_.buildScaled(path, archive, image, static_cast<std::int16_t>(filter));
    }
    const std::size_t all = session_.chosenTexture().mipmaps.size();
    return builder_.buildWithLibraryChain(path, archive, static_cast<std::size_t>(choice.firstLevel),
                                          choice.chained ? all : 1);
}

} // namespace pelrath
