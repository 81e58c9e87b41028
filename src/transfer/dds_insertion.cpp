#include "transfer/dds_insertion.hpp"

#include "platform/files.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/insertion_attempt.hpp"

#include <algorithm>

namespace pelrath {

namespace {
constexpr const char* lineBreak = "\r\n";
} // namespace

DdsInsertion::DdsInsertion(const Controls& controls, MessageBoxes& boxes, const Session& session,
                           const TransferState& state, SafeCopy& safeCopy, ReadOnlyArchive& readOnly,
                           ImageInsertion& images, BazarTempCopy& bazarTemp)
    : c_(controls), boxes_(boxes), session_(session), state_(state), safeCopy_(safeCopy), readOnly_(readOnly),
      images_(images), bazarTemp_(bazarTemp) {}

void DdsInsertion::insertFromDdsFiles(HeldArchive& archive) {
    summary_.clear();
    showSummary();
    if (nothingChosen()) {
        summary_ = std::string{"No mipmap selected."} + lineBreak + "0 mipmap(s) inserted." + lineBreak;
        showSummary();
    } else if (!mayBegin(archive)) {
        summary_ += "Insertion canceled.";
        showSummary();
    } else if (c_.chkDestination[ToArchive].checked()) {
        insertIntoArchive(archive);
    }
    if (c_.chkDestination[ToBazarTemp].checked()) {
        attemptInsertion(boxes_, [this] { copyIntoBazarTemp(); });
    }
}

bool DdsInsertion::nothingChosen() const {
    return state_.mipmapOperation == Single && c_.chkDestination[ToArchive].checked() &&
           checkedLevels().empty();
}

bool DdsInsertion::mayBegin(HeldArchive& archive) {
    const bool asRead =
        !c_.chkDestination[ToArchive].checked() || attemptInsertion(boxes_, [&] { archive.requireTables(); });
    const bool safe = asRead && safeCopy_.makeSafeCopy(archive, summary_);
    ofSafeCopy_ = summary_;
    showSummary();
    return safe;
}

void DdsInsertion::insertIntoArchive(HeldArchive& archive) {
    if (readOnly_.handleReadOnlyArchive(ReadOnlyArchive::BeforeWriting, archive, summary_)) {
        switch (state_.mipmapOperation) {
        case Single:
        case External:
            insertLevels(archive, checkedLevels(), " mipmap(s) inserted.");
            break;
        case Embedded:
            insertLevels(archive, {LevelWriter::everyLevel}, " Mipmap(s) inserted.");
            break;
        case Create:
            createFromLargest(archive);
            break;
        }
    }
    readOnly_.handleReadOnlyArchive(ReadOnlyArchive::AfterWriting, archive, summary_);
    showSummary();
}

std::vector<std::int16_t> DdsInsertion::checkedLevels() const {
    std::vector<std::int16_t> levels;
    for (int row = 0; row < c_.List1.count(); ++row) {
        if (c_.List1.isChecked(row)) levels.push_back(static_cast<std::int16_t>(row));
    }
    return levels;
}

void DdsInsertion::insertLevels(HeldArchive& archive, const std::vector<std::int16_t>& levels,
                                const char* countWords) {
    LevelWriter writer{archive};
    std::vector<Source> sources;
    attemptInsertion(boxes_, [&] {
        for (const std::int16_t level : levels) {
            sources.push_back(hold(writer, level));
        }
        const auto tooShort = [](const Source& source) { return source.tooShort; };
        if (writer.held() > 0 && std::none_of(sources.begin(), sources.end(), tooShort)) {
            writer.writeHeldLevels();
        }
    });
    for (const Source& source : sources) {
        if (writer.written() >= source.levels) summary_ += source.line;
    }
    const bool noChain = state_.mipmapOperation == Embedded && !sources.empty() && !sources.front().found;
    if (!noChain) summary_ += std::to_string(writer.written()) + countWords + lineBreak;
    showSummary();
}

bool DdsInsertion::checkSourceFile(const std::string& path, std::string& summary) {
    const bool found = fileExists(path);
    summary += found ? " inserted." : " not found.";
    summary += lineBreak;
    return found;
}

DdsInsertion::Source DdsInsertion::hold(LevelWriter& writer, std::int16_t level) const {
    const bool chain = level == LevelWriter::everyLevel;
    const std::string path =
        buildImageFileName(session_, chain ? std::int16_t{0} : level, ImageFileKind::Dds);
    Source source{path};
    source.found = checkSourceFile(path, source.line);
    if (!source.found) return source;
    try {
        writer.readMipmapLevels(path, session_.selectedTexture, chain, level);
        source.levels = writer.held();
    } catch (const SourceTooShort&) {
        source.tooShort = true;
        source.line = path + " is too short." + lineBreak;
    }
    return source;
}

void DdsInsertion::createFromLargest(HeldArchive& archive) {
    images_.performSimpleImageInsertion(ImageFileKind::Dds, archive);
    // Its summary starts anew, and would hide the safe copy's name and what became of the attribute. That no
    // copy was made it says as well.
    std::string nested = c_.ExtractSummary.text();
    if (nested.starts_with(ofSafeCopy_)) nested.erase(0, ofSafeCopy_.size());
    summary_ += nested;
    showSummary();
}

void DdsInsertion::copyIntoBazarTemp() {
    const std::string path = buildImageFileName(session_, 0, ImageFileKind::Dds);
    if (summary_.empty()) summary_ = path + lineBreak;
    if (!fileExists(path)) return;
    std::string ofCopy;
    if (!bazarTemp_.StoreCopyInBazarTemp(session_.selectedTexture, path, ofCopy)) return;
    if (!ofCopy.empty() && !summary_.ends_with(lineBreak)) summary_ += lineBreak;
    summary_ += ofCopy;
    showSummary();
}

void DdsInsertion::showSummary() { c_.ExtractSummary.setText(summary_); }

} // namespace pelrath
