#pragma once

#include "controls/control.hpp"
#include "controls/timer.hpp"
#include "editing/watch_list.hpp"

#include <optional>
#include <string>

namespace pelrath::editing {

/// The strip that says which of the open archive's files were saved, one at a time, and what became of the
/// last one that was inserted. Files of another archive are told when that is the open one again.
class SaveBar {
public:
    SaveBar(WatchList& list, const Session& session);

    Frame strip;                  // visible while there is something to say
    Label text;                   // "roof-512x512.tga was saved"
    CommandButton previous, next; // step through several files
    CommandButton look, insert, ignore;
    Timer farewell; // ends what is only told; to be run while nothing else does

    /// The file that the buttons are about; none while they are not shown.
    [[nodiscard]] std::optional<EditedFile> current() const;

    /// Another archive is open, or none.
    void refresh();
    /// Says something for a while.
    void tell(const std::string& words);

private:
    void show(const std::string& words, bool withButtons);
    void step(std::size_t by);

    WatchList& list_;
    const Session& session_;
    std::vector<EditedFile> files_;
    std::size_t at_ = 0;
    Connections connections_;
};

} // namespace pelrath::editing
