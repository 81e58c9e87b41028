#include "transfer/image_insertion.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/leftovers.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/picture_levels.hpp"
#include "transfer/summary_text.hpp"

namespace pelrath {

ImageInsertion::ImageInsertion(const Controls& controls, MessageBoxes& boxes, const Session& session,
                               const TransferState& state, const TransferImaging& imaging)
    : c_(controls), boxes_(boxes), session_(session), state_(state), imaging_(imaging) {}

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
    if (const std::optional<LevelWish> wish = choose()) {
        insertChosen(kind, *wish, run, writer);
    } else {
        run.say("No mipmap selected.\r\n");
    }
    run.say(std::to_string(writer.written()) + " mipmaps(s) inserted.");
}

std::optional<LevelWish> ImageInsertion::choose() const {
    return wishOf(state_.mipmapOperation, c_.List1, c_.lstScaleFilter);
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

void ImageInsertion::insertChosen(ImageFileKind kind, const LevelWish& wish, InsertionRun& run,
                                  LevelWriter& writer) {
    const InsertionRun::WritePermission permission{run};
    if (!permission) return;
    std::optional<ScratchFile> built;
    run.attempt([&] { buildAndWrite(kind, wish, run, writer, built); });
    if (built) run.attempt([&] { built->remove(); });
}

void ImageInsertion::buildAndWrite(ImageFileKind kind, const LevelWish& wish, InsertionRun& run,
                                   LevelWriter& writer, std::optional<ScratchFile>& built) {
    const std::string source = buildImageFileName(session_, wish.firstLevel, kind);
    run.say(source + lineBreak);
    if (!imaging_.use.start()) return;
    PictureLevels picture{imaging_, session_.programFolder, source};
    if (!picture) {
        boxes_.critical("LoadImage " + source + " error", "SimpleImageInsertion");
        return;
    }
    if (!picture.chooseFormat(session_.chosenTexture())) return;
    built.emplace(builtFileOf(source));
    try {
        if (!picture.hold(built->path(), wish, run.archive(), writer)) return;
        writer.writeHeldLevels();
    } catch (const SourceTooShort&) {
        run.say(source + " is too short." + lineBreak); // the image is: it gives too little data
    }
    if (writer.written() == 0) {
        boxes_.critical("Error during insertion in CDDS.", "performSimpleImageInsertion");
    }
    picture.remove();
}

} // namespace pelrath
