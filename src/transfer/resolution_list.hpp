#pragma once

#include "session/session.hpp"
#include "transfer/transfer_controls.hpp"

namespace pelrath {

/// The levels of the chosen texture, and which of them an operation may be given. Entry i is level i.
class ResolutionList {
public:
    struct Controls {
        CheckListBox& List1;
        CommandButton& cmdSelAllResolution;
        CommandButton& cmdSelNoneResolution;
    };

    ResolutionList(const Controls& controls, const Session& session, const TransferState& state);

    /// The levels of the chosen texture, checked for an insertion and not for an extraction.
    void fill();
    void selectFirst();

    /// What "All" stands for: every level, or the first where only one can be chosen.
    void selectAll();

    [[nodiscard]] int countSelectedResolutions() const { return c_.List1.checkedCount(); }

private:
    void selectNone();
    void List1_ItemCheck(int row);
    void uncheckAllBut(int kept);
    /// True where one level at most can be chosen.
    [[nodiscard]] bool singleChoice() const;
    /// True where an operation always takes the whole chain.
    [[nodiscard]] bool wholeChain() const;

    Controls c_;
    const Session& session_;
    const TransferState& state_;
    Connections connections_;
    bool settling_ = false;
};

} // namespace pelrath
