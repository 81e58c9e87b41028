#include "transfer/texture_extraction.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/leftovers.hpp"
#include "transfer/failure_report.hpp"
#include "transfer/image_file_name.hpp"

namespace pelrath {

namespace {

constexpr FailureWords failureWords{"SelectImage Error Number: ", "ImageSave Error : "};
constexpr const char* lineBreak = "\r\n";

} // namespace

TextureExtraction::TextureExtraction(const Controls& controls, MessageBoxes& boxes, const Session& session,
                                     const TransferState& state, const TransferImaging& imaging,
                                     EditorLaunch& editor)
    : c_(controls), boxes_(boxes), session_(session), state_(state), imaging_(imaging), editor_(editor),
      dds_(session.archive, session.archivePath, session.archiveFile) {}

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
void TextureExtraction::extractFile(const std::string& path, const std::function<bool()>& write) {
    std::string summary = summary_ + path;
    const bool wanted = checkOverwrite(path, summary);
    if (wanted && !write()) return;
    summary_ = summary + lineBreak;
    count_ += wanted ? 1 : 0;
}

void TextureExtraction::begin() {
    c_.ExtractSummary.setText("");
    summary_.clear();
    count_ = 0;
    editorPath_.clear();
    removeHiddenLeftovers(session_.exportImportFolder);
}

void TextureExtraction::finishSummary() {
    summary_ += std::to_string(count_) + " file(s) extracted.";
    c_.ExtractSummary.setText(summary_);
}

void TextureExtraction::launchEditor() {
    if (!c_.chkLaunchEditor.checked()) return;
    if (!fileExists(editorPath_)) editorPath_.clear();
    // It may come when the dialog has been closed: the message boxes are there as long as the program.
    const auto failed = [&boxes = boxes_](const RuntimeError& error) {
        attempt(boxes, failureWords, [&error] { throw RuntimeError{error}; });
    };
    attempt(boxes_, failureWords, [&] { editor_.launchEditor(editorPath_, failed); });
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
    editorPath_ = buildImageFileName(session_, 0, ImageFileKind::Dds);
    extractFile(editorPath_, [this] {
        writeLong(0, [this] { dds_.writeDdsChainFile(editorPath_, session_.selectedTexture); });
        return true;
    });
}

void TextureExtraction::writeLevels() {
    const auto levels = static_cast<std::int16_t>(c_.List1.count()); // no texture has more
    for (std::int16_t level = 0; level < levels; ++level) {
        if (!c_.List1.isChecked(level)) continue;
        editorPath_ = buildImageFileName(session_, level, ImageFileKind::Dds);
        extractFile(editorPath_, [this, level] {
            writeLong(level, [&] { dds_.writeDdsLevelFile(editorPath_, session_.selectedTexture, level); });
            return true;
        });
    }
    if (state_.mipmapOperation != External) return;
    const std::string largest = buildImageFileName(session_, 0, ImageFileKind::Dds);
    if (fileExists(largest)) editorPath_ = largest;
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
    editorPath_ = buildImageFileName(session_, chosen, kind);
    extractFile(editorPath_, [this, &image] { return image.save(editorPath_); });
}

} // namespace pelrath
