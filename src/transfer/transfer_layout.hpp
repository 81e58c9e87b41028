#pragma once

#include "platform/screen.hpp"
#include "transfer/transfer_controls.hpp"

namespace pelrath {

/// Gives the dialog's controls their places: the frames stacked at the left, the resolutions beside them,
/// below both the warning, the summary, which takes what height is left, and the buttons.
class TransferLayout {
public:
    explicit TransferLayout(TransferControls& controls);

    /// Over `owner`, in the size that the user left it.
    void centreOn(const Window& owner);

private:
    void arrange();
    /// Below the frames so far.
    void stack(Frame& frame, double height);
    void placeTexture();
    void placeFileFormat();
    void placeMipmaps();
    void placeExtractOptions();
    void placeDestinations();
    static void placeFolder(TextBox& folder, CommandButton& browse, Box line);
    void placeResolutions();
    void placeBelow();
    [[nodiscard]] double width() const { return c_.window.box().width; }

    TransferControls& c_;
    bool arranging_ = false;
    double bottom_ = 0; ///< of the frames
    Connections connections_;
};

} // namespace pelrath
