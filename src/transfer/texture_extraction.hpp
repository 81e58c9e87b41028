#pragma once

#include "archive/dds_export.hpp"
#include "archive/image_file_kind.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"
#include "transfer/editor_launch.hpp"
#include "transfer/extracted_file.hpp"
#include "transfer/loaded_level.hpp"
#include "transfer/transfer_controls.hpp"

#include <functional>
#include <string>

namespace pelrath {

/// Writes levels of the chosen texture to files in the Export/Import folder and says in the summary box what
/// was written. What fails is told in a message; then no partial file is left and an existing one is as it
/// was. An editor is started behind the summary; where that fails the files stay, and it is told as well.
class TextureExtraction {
public:
    struct Controls {
        CheckListBox& List1;
        CheckBox& chkOverwriteExistingFiles;
        CheckBox& chkLaunchEditor;
        TextBox& ExtractSummary;
    };

    TextureExtraction(const Controls& controls, MessageBoxes& boxes, const Session& session,
                      const TransferState& state, const TransferImaging& imaging, EditorLaunch& editor,
                      const ExtractionNotices& notices);

    /// One file a checked level, or one of all levels.
    void extractToDdsFiles();
    /// The last checked level as a BMP or TGA file.
    void extractToImages(ImageFileKind kind);

private:
    /// Whether the file may be written, which is appended to the summary.
    bool checkOverwrite(const std::string& path, std::string& summary);
    void writeChain();
    void writeLevels();
    void writeImage(ImageFileKind kind);
    /// It is the editor's, too, unless another one follows. `write` says whether the file was written; where
    /// it was not, that has been told.
    void extractFile(ExtractedFile file, const std::function<bool()>& write);
    [[nodiscard]] ExtractedFile fileOf(std::int16_t level, ImageFileKind kind) const;
    void begin();
    void finishSummary();
    /// Writes the level, or the chain that begins with it, while the sign of work is shown.
    void writeLong(std::int16_t level, const std::function<void()>& write);
    /// For what was extracted, if that is wanted and there is such a file.
    void launchEditor();

    Controls c_;
    MessageBoxes& boxes_;
    const Session& session_;
    const TransferState& state_;
    TransferImaging imaging_;
    EditorLaunch& editor_;
    const ExtractionNotices& notices_;
    DdsExport dds_;

    // Of the current run.
    std::string summary_;
    int count_ = 0;
    ExtractedFile forEditor_;
};

} // namespace pelrath
