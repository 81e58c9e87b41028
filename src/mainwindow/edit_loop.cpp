#include "mainwindow/edit_loop.hpp"

#include "platform/posix/files.hpp"
#include "platform/scoped_value.hpp"

#include <algorithm>

namespace pelrath {

namespace {

constexpr const char* title = "Pelrath - Saved file";
constexpr std::string_view copyLine = "Safe copy done as ";

std::string sidesText(std::int64_t width, std::int64_t height) {
    return std::to_string(width) + " x " + std::to_string(height);
}

// ", safe copy planes-0.cdds"
std::string safeCopyText(const Insertion& done) {
    const std::size_t at = done.summary.find(copyLine);
    if (at == std::string::npos) return {};
    const std::size_t from = at + copyLine.size();
    return ", safe copy " +
           std::string{fileName(done.summary.substr(from, done.summary.find('\r', from) - from))};
}

} // namespace

EditLoop::EditLoop(const Controls& controls, const Parts& parts, Session& session)
    : c_(controls), parts_(parts), session_(session) {
    const auto keep = [this](Connection connection) { connections_.push_back(std::move(connection)); };
    TextureExtractionInsertion& dialog = parts_.dialog;
    keep(dialog.extracted.written.connect([this](const ExtractedFile& file) {
        parts_.list.rewritten(editing::EditedFile::ofChosen(session_, file));
    }));
    keep(dialog.extracted.handedOver.connect([this](const ExtractedFile& file) {
        parts_.list.add(editing::EditedFile::ofChosen(session_, file));
    }));
    keep(dialog.insertionBegins.connect([this] { parts_.list.insertionBegins(); }));
    keep(dialog.inserted.connect([this](const Insertion& done) {
        memory_.note(done, session_, parts_.dialog.window.isLoaded());
        if (done.levels == 0) return;
        for (const std::string& source : sourcesOf(done.choices, session_)) {
            parts_.list.inserted(source);
        }
    }));
    keep(parts_.bar.look.click.connect([this] { lookAtCurrent(); }));
    keep(parts_.bar.insert.click.connect([this] { insertCurrent(); }));
}

void EditLoop::choose(const editing::EditedFile& file) {
    if (session_.selectedTexture != file.texture) c_.texturePane.setSelected(file.texture, true);
}

void EditLoop::lookAtCurrent() {
    const auto file = parts_.bar.current();
    if (!file) return;
    choose(*file);
    const ScopedValue folder{session_.exportImportFolder, std::string{parentFolder(file->file.path)}};
    session_.mode = DialogMode::Insertion;
    parts_.look.keepBefore();
    parts_.dialog.show(c_.window, memory_.choicesFor(*file, session_));
}

void EditLoop::insertCurrent() {
    const auto file = parts_.bar.current();
    if (!file) return;
    if (const auto picture = parts_.list.lookAgain(file->file.path)) {
        insert(*file, *picture);
    } else {
        refuse(*file, "cannot be loaded at the moment", "It is told here as soon as it is whole.");
    }
}

void EditLoop::insert(const editing::EditedFile& file, const editing::PictureState& picture) {
    choose(file);
    const ScopedValue folder{session_.exportImportFolder, std::string{parentFolder(file.file.path)}};
    TransferChoices choices = memory_.choicesFor(file, session_);
    if (!fits(file, picture, choices) || !provideSafeCopy(file, choices)) return;
    parts_.look.keepBefore();
    const Insertion done = parts_.dialog.insertUnseen(choices);
    tellInserted(file, done);
    if (done.levels == 0) return;
    c_.texturePane.setSelected(file.texture, false); // so that its picture is read anew
    c_.texturePane.setSelected(file.texture, true);
}

bool EditLoop::fits(const editing::EditedFile& file, const editing::PictureState& picture,
                    const TransferChoices& choices) {
    const MipmapRecord& level = file.level();
    const auto width = static_cast<std::uint32_t>(std::max(level.width, 1)),
               height = static_cast<std::uint32_t>(std::max(level.height, 1));
    if (picture.sides.width != width || picture.sides.height != height) {
        refuse(file,
               "has " + sidesText(picture.sides.width, picture.sides.height) + " pixels, and the texture " +
                   sidesText(width, height),
               "Please give it the texture's size in the editor, and save it again.");
        return false;
    }
    const bool asItIs = choices.fileType == DdsFileType && choices.operation != Create;
    const BlockFormat wanted =
        nativeImageKind(file.record)->kind == ImageFileKind::Bmp ? BlockFormat::Dxt1 : BlockFormat::Dxt5;
    if (!asItIs || picture.blocks == wanted) return true;
    refuse(file, "is not stored as " + file.record.fourCC + ", as the texture is",
           "Please save it again as that, or press Look and choose Create.");
    return false;
}

bool EditLoop::provideSafeCopy(const editing::EditedFile& file, TransferChoices& choices) {
    const auto haveFolder = [this] {
        const std::string& folder = session_.settings.cddsBackupFolder;
        return !folder.empty() && folderExists(folder);
    };
    choices.safeCopy = !memory_.hasSafeCopy(file.archivePath);
    if (!choices.safeCopy || haveFolder()) return true;
    parts_.dialog.askForSafeCopyFolder(c_.window);
    if (haveFolder()) return true;
    choices.safeCopy = false;
    const std::string question = "There is no folder for safe copies, so that none is made of " +
                                 file.archivePath + ".\r\n\r\n- Select Ok to insert " + file.name() +
                                 " without a safe copy,\r\n- Select Cancel to insert nothing.";
    return parts_.boxes.show(question, title, BoxIcon::Question, BoxButtons::OkCancel) == BoxAnswer::Ok;
}

void EditLoop::tellInserted(const editing::EditedFile& file, const Insertion& done) {
    const std::string levels = std::to_string(done.levels) + (done.levels == 1 ? " level" : " levels");
    if (done.levels > 0) {
        parts_.bar.tell(file.name() + " was inserted (" + levels + safeCopyText(done) + ")");
    } else {
        parts_.bar.tell(file.name() + " was not inserted");
    }
}

void EditLoop::refuse(const editing::EditedFile& file, const std::string& why, const std::string& remedy) {
    parts_.boxes.exclamation(file.name() + " " + why + ". It was not inserted.\r\n\r\n" + remedy, title);
}

} // namespace pelrath
