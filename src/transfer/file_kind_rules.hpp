#pragma once

#include "session/session.hpp"
#include "transfer/resolution_list.hpp"
#include "transfer/transfer_controls.hpp"

namespace pelrath {

/// What the choice of a file kind and of a mipmap operation makes of the other choices.
class FileKindRules {
public:
    struct Controls {
        OptionGroup<2>& optOutFileType;
        OptionGroup<4>& optMipmaps;
        Label& lblFilter;
        DropDownList& lstScaleFilter;
        CheckBox& bazarTemp;
        TextBox& txtbazarTempFolder;
        Label& lblWarningTgaInsert;
    };

    FileKindRules(const Controls& controls, const Session& session, TransferState& state,
                  ResolutionList& resolutions);

private:
    void chooseNativeKind();
    void chooseDds();
    void optMipmaps_Click(MipmapOperation operation);
    void enableFilter(bool enabled);
    void enableBazarTemp(bool enabled);
    [[nodiscard]] bool inserting() const { return session_.mode == DialogMode::Insertion; }

    Controls c_;
    const Session& session_;
    TransferState& state_;
    ResolutionList& resolutions_;
    Connections connections_;
};

} // namespace pelrath
