#pragma once

#include "session/session.hpp"
#include "transfer/bazar_temp_copy.hpp"
#include "transfer/image_insertion.hpp"
#include "transfer/insertion_run.hpp"
#include "transfer/level_writer.hpp"
#include "transfer/transfer_controls.hpp"

#include <array>
#include <string>
#include <vector>

namespace pelrath {

/// Takes the chosen texture's levels from DDS files in the Export/Import folder, as they are, into the
/// archive and, if wanted, into the Bazar Temp folder. The summary box says which files were found and how
/// many levels the archive really got; what fails is told in a message.
class DdsInsertion {
public:
    struct Controls {
        const CheckListBox& List1;
        const std::array<CheckBox, 2>& chkDestination;
    };

    DdsInsertion(const Controls& controls, const Session& session, const TransferState& state,
                 ImageInsertion& images, BazarTempCopy& bazarTemp);

    void insertFromDdsFiles(InsertionRun& run);

private:
    /// A file, and how many levels are held once its own are: it is inserted when that many are written.
    struct Source {
        std::string line; ///< what the summary then says
        bool found = false;
        bool tooShort = false;
        std::int16_t levels = 0;
    };

    [[nodiscard]] bool nothingChosen() const;
    void check(InsertionRun& run, std::optional<FolderLock>& folder) const;
    void insertIntoArchive(InsertionRun& run);
    /// Each of the levels from its own file, or LevelWriter::everyLevel from that of level 0.
    void insertLevels(InsertionRun& run, const std::vector<std::int16_t>& levels, const char* countWords);
    /// Whether the file is there, which is appended to the summary.
    static bool checkSourceFile(const std::string& path, std::string& summary);
    [[nodiscard]] Source hold(LevelWriter& writer, std::int16_t level) const;
    void copyIntoBazarTemp(InsertionRun& run);

    Controls c_;
    const Session& session_;
    const TransferState& state_;
    ImageInsertion& images_;
    BazarTempCopy& bazarTemp_;
};

} // namespace pelrath
