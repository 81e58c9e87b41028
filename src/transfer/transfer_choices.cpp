#include "transfer/transfer_choices.hpp"

#include "platform/posix/files.hpp"
#include "transfer/image_file_name.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>

namespace pelrath {

namespace {

constexpr std::array operationWords{"single", "embedded", "external", "create"}; // by MipmapOperation
constexpr const char* nativeWord = "image";
constexpr std::string_view filterWord = "filter=";

// The check boxes that are not as given have a word.
struct Mark {
    const char* word;
    bool TransferChoices::*value;
    bool says;
    DialogMode mode;
};
constexpr std::array<Mark, 5> marks{
    {{"overwrite", &TransferChoices::overwrite, true, DialogMode::Extraction},
     {"editor", &TransferChoices::launchEditor, true, DialogMode::Extraction},
     {"no-archive", &TransferChoices::toArchive, false, DialogMode::Insertion},
     {"no-copy", &TransferChoices::safeCopy, false, DialogMode::Insertion},
     {"bazar", &TransferChoices::toBazarTemp, true, DialogMode::Insertion}}};

void markLevels(TransferControls& c, const std::vector<std::int16_t>& levels) {
    if (levels.empty()) return;
    c.cmdSelNoneResolution.press();
    for (const std::int16_t level : levels) {
        if (level < c.List1.count()) c.List1.setChecked(level, true);
    }
}

} // namespace

TransferChoices choicesOf(const TransferControls& controls, const TransferState& state) {
    TransferChoices choices;
    choices.fileType = controls.optOutFileType[NativeFileType].selected() ? NativeFileType : DdsFileType;
    choices.operation = state.mipmapOperation;
    choices.filter = controls.lstScaleFilter.selectedRow();
    for (int row = 0; row < controls.List1.count(); ++row) {
        if (controls.List1.isChecked(row)) choices.levels.push_back(static_cast<std::int16_t>(row));
    }
    choices.overwrite = controls.chkOverwriteExistingFiles.checked();
    choices.launchEditor = controls.chkLaunchEditor.checked();
    choices.toArchive = controls.chkDestination[ToArchive].checked();
    choices.safeCopy = controls.chkSaveCdds.checked();
    choices.toBazarTemp = controls.chkDestination[ToBazarTemp].checked();
    return choices;
}

void choose(TransferControls& controls, const Session& session, const TransferChoices& choices) {
    controls.optOutFileType[choices.fileType].select();
    OptionButton& operation = controls.optMipmaps[choices.operation];
    if (operation.enabled() && operation.visible()) operation.select();
    markLevels(controls, choices.levels);
    if (session.mode == DialogMode::Extraction) {
        controls.chkOverwriteExistingFiles.setChecked(choices.overwrite);
        controls.chkLaunchEditor.setChecked(choices.launchEditor);
        return;
    }
    if (choices.filter >= 0 && choices.filter < static_cast<int>(controls.lstScaleFilter.lines().size()))
        controls.lstScaleFilter.select(choices.filter);
    controls.chkDestination[ToArchive].setChecked(choices.toArchive);
    controls.chkSaveCdds.setChecked(choices.safeCopy);
    CheckBox& bazarTemp = controls.chkDestination[ToBazarTemp];
    if (bazarTemp.enabled() && folderExists(session.settings.bazarTempFolder))
        bazarTemp.setChecked(choices.toBazarTemp);
}

std::vector<std::string> sourcesOf(const TransferChoices& choices, const Session& session) {
    const auto native = nativeImageKind(session.chosenTexture());
    const ImageFileKind kind =
        choices.fileType == NativeFileType && native ? native->kind : ImageFileKind::Dds;
    std::vector<std::int16_t> levels = choices.levels;
    if (choices.operation == Embedded || choices.operation == Create) levels = {0};
    if (kind != ImageFileKind::Dds && levels.size() > 1) levels = {levels.back()};
    std::vector<std::string> sources;
    sources.reserve(levels.size());
    for (const std::int16_t level : levels) {
        sources.push_back(buildImageFileName(session, level, kind));
    }
    return sources;
}

std::string wordsOf(const TransferChoices& choices, DialogMode mode) {
    const bool native = choices.fileType == NativeFileType;
    std::string words = native ? nativeWord : "dds";
    // An image is extracted by no operation, and the value is one of before.
    if (!native || mode == DialogMode::Insertion)
        words += std::string{" "} + operationWords.at(choices.operation);
    if (mode == DialogMode::Insertion)
        words += " " + std::string{filterWord} + std::to_string(choices.filter);
    for (const Mark& mark : marks) {
        if (mark.mode == mode && choices.*mark.value == mark.says) words += std::string{" "} + mark.word;
    }
    return words;
}

TransferChoices choicesFromWords(const std::string& words) {
    TransferChoices choices;
    std::istringstream text{words};
    for (std::string word; text >> word;) {
        if (word == nativeWord) choices.fileType = NativeFileType;
        const auto operation = std::find(operationWords.begin(), operationWords.end(), word);
        if (operation != operationWords.end())
            choices.operation = static_cast<MipmapOperation>(operation - operationWords.begin());
        if (word.starts_with(filterWord)) {
            const char* end = word.data() + word.size();
            std::from_chars(word.data() + filterWord.size(), end, choices.filter);
        }
        for (const Mark& mark : marks) {
            if (word == mark.word) choices.*mark.value = mark.says;
        }
    }
    return choices;
}

} // namespace pelrath
