#include "transfer/texture_extraction.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/leftovers.hpp"
#include "transfer/failure_report.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/summary_text.hpp"

namespace pelrath {

namespace {

constexpr FailureWords failureWords{"SelectImage Error Number: ", "ImageSave Error : "};

} // namespace

TextureExtraction::TextureExtraction(const Controls& controls, MessageBoxes& boxes, const Session& session,
                                     const TransferState& state, const TransferImaging& imaging,
                                     EditorLaunch& editor, const ExtractionNotices& notices)
    : c_(controls), boxes_(boxes), session_(session), state_(state), imaging_(imaging), editor_(editor),
      notices_(notices), dds_(session.archive, session.archivePath, session.archiveFile) {}

bool TextureExtraction::checkOverwrite(const std::string& path, std::string& summary) {
    const CheckValue overwriting = c_.chkOverwriteExistingFiles.value();
    if (overwriting == CheckValue::Grey) return true;
    if (!fileExists(path)) {
        summary += " written";
        return true;
    }
    summary += overwriting == CheckValue::Checked ? " overwritten." : " not overwritten.";
    return overwriting == CheckValue::Checked;
}

// What the summary says of a file holds only once the file is there.
void TextureExtraction::extractFile(ExtractedFile file, const std::function<bool()>& write) {
    forEditor_ = std::move(file);
    std::string summary = summary_ + forEditor_.path;
    const bool wanted = checkOverwrite(forEditor_.path, summary);
    if (wanted && !write()) return;
    summary_ = summary + lineBreak;
    if (!wanted) return;
    ++count_;
    notices_.written.emit(forEditor_);
}

ExtractedFile TextureExtraction::fileOf(std::int16_t level, ImageFileKind kind) const {
    return {buildImageFileName(session_, level, kind), kind, level};
}

void TextureExtraction::begin() {
    c_.ExtractSummary.setText("");
    summary_.clear();
    count_ = 0;
    forEditor_ = {};
    removeHiddenLeftovers(session_.exportImportFolder);
}

void TextureExtraction::finishSummary() {
    summary_ += std::to_string(count_) + " file(s) extracted.";
    c_.ExtractSummary.setText(summary_);
}

void TextureExtraction::launchEditor() {
    if (!c_.chkLaunchEditor.checked()) return;
    if (!fileExists(forEditor_.path)) forEditor_.path.clear();
    // It may come when the dialog has been closed: the message boxes are there as long as the program.
    const auto failed = [&boxes = boxes_](const RuntimeError& error) {
        attempt(boxes, failureWords, [&error] { throw RuntimeError{error}; });
    };
    attempt(boxes_, failureWords, [&] {
        if (editor_.launchEditor(forEditor_.path, failed)) notices_.handedOver.emit(forEditor_);
    });
}

void TextureExtraction::extractToDdsFiles() {
    begin();
    const bool done = attempt(boxes_, failureWords, [this] {
        if (state_.mipmapOperation == Embedded) {
            writeChain();
        } else {
            writeLevels();
        }
    });
    finishSummary();
    if (done) launchEditor();
}

void TextureExtraction::writeChain() {
    extractFile(fileOf(0, ImageFileKind::Dds), [this] {
        writeLong(0, [this] { dds_.writeDdsChainFile(forEditor_.path, session_.selectedTexture); });
        return true;
    });
}

void TextureExtraction::writeLevels() {
    const auto levels = static_cast<std::int16_t>(c_.List1.count()); // no texture has more
    for (std::int16_t level = 0; level < levels; ++level) {
        if (!c_.List1.isChecked(level)) continue;
        extractFile(fileOf(level, ImageFileKind::Dds), [this, level] {
            writeLong(level,
                      [&] { dds_.writeDdsLevelFile(forEditor_.path, session_.selectedTexture, level); });
            return true;
        });
    }
    if (state_.mipmapOperation != External) return;
    ExtractedFile largest = fileOf(0, ImageFileKind::Dds);
    if (fileExists(largest.path)) forEditor_ = std::move(largest);
}

void TextureExtraction::writeLong(std::int16_t level, const std::function<void()>& write) {
    runOnLevel(imaging_.facade.longWork(), dds_, session_.selectedTexture, level, write);
}

void TextureExtraction::extractToImages(ImageFileKind kind) {
    begin();
    if (!attempt(boxes_, failureWords, [this, kind] { writeImage(kind); })) return;
    finishSummary();
    if (count_ > 0) launchEditor();
}

void TextureExtraction::writeImage(ImageFileKind kind) {
    if (!imaging_.use.start()) {
        summary_ += "Failed to initialise Image Library.";
        return;
    }
    const int level = c_.List1.lastCheckedRow();
    if (level < 0) {
        summary_ = std::string{"No mipmap selected."} + lineBreak;
        return;
    }
    const auto chosen = static_cast<std::int16_t>(level);
    LoadedLevel image{imaging_, boxes_, dds_};
    if (!image.load(session_.programFolder, session_.selectedTexture, chosen, kind)) return;
    extractFile(fileOf(chosen, kind), [this, &image] { return image.save(forEditor_.path); });
}

} // namespace pelrath
