#include "transfer/transfer_layout.hpp"

#include "platform/scoped_flag.hpp"

#include <algorithm>
#include <array>

namespace pelrath {

namespace {

// All in twips.
constexpr double margin = 150;
constexpr double gap = 90; // between frames
constexpr double rowPitch = 390;
constexpr double lineHeight = 330; // of an option or a check box
constexpr double boxHeight = 360;  // of a text box or a button
constexpr double frameTop = 345;   // of what is in a frame, below its title
constexpr double inset = 180;      // of what is in a frame
constexpr double indent = 300;     // of what belongs to the line above it
constexpr double leftWidth = 5880; // of the stacked frames
constexpr double optionWidth = 1380;
constexpr double framesTop = 630;
constexpr double buttonWidth = 1500;
constexpr double rememberWidth = 1740;
constexpr double browseWidth = 390;        // of "..."
constexpr double leastFramesHeight = 3450; // shows the levels of a texture of 512 pixels at once
constexpr double warningHeight = 480;

constexpr double startWidth = 9780;
constexpr double startHeight = 8850;
constexpr double leastWidth = 9480;
constexpr double leastHeight = 7950;

double row(int index) { return frameTop + index * rowPitch; }

} // namespace

TransferLayout::TransferLayout(TransferControls& controls) : c_(controls) {
    c_.window.setBox({0, 0, startWidth, startHeight});
    c_.window.setSmallestSize(leastWidth, leastHeight);
    connections_.push_back(c_.window.resize.connect([this] { arrange(); }));
    for (Control* coming :
         std::array<Control*, 3>{&c_.destinationFrame, &c_.lstScaleFilter, &c_.lblWarningTgaInsert}) {
        connections_.push_back(coming->changed.connect([this] { arrange(); }));
    }
    arrange();
}

void TransferLayout::centreOn(const Window& owner) {
    const Box& over = owner.box();
    c_.window.moveTo(over.left + (over.width - c_.window.box().width) / 2,
                     over.top + (over.height - c_.window.box().height) / 2);
}

void TransferLayout::arrange() {
    if (arranging_) return; // what is being placed says that it changed
    const ScopedFlag arranging{arranging_};
    placeTexture();
    bottom_ = framesTop - gap;
    placeFileFormat();
    placeMipmaps();
    if (c_.destinationFrame.visible()) {
        placeDestinations();
    } else {
        placeExtractOptions();
    }
    placeResolutions();
    placeBelow();
}

void TransferLayout::placeTexture() {
    constexpr double labelWidth = 1560;
    c_.Label1.setBox({margin, margin, labelWidth, boxHeight});
    c_.Text1.setBox({margin + labelWidth, margin, width() - labelWidth - 2 * margin, boxHeight});
}

void TransferLayout::stack(Frame& frame, double height) {
    frame.setBox({margin, bottom_ + gap, leftWidth, height});
    bottom_ += gap + height;
}

void TransferLayout::placeFileFormat() {
    stack(c_.FileFormat, row(1));
    double left = inset;
    for (OptionButton& kind : c_.optOutFileType) {
        kind.setBox({left, row(0), optionWidth, lineHeight});
        left += optionWidth;
    }
}

void TransferLayout::placeMipmaps() {
    const bool filtered = c_.lstScaleFilter.visible();
    stack(c_.Mipmaps, row(filtered ? 2 : 1) + (filtered ? gap : 0));
    c_.Picture1.setBox({inset, row(0), leftWidth - 2 * inset, lineHeight});
    double left = 0;
    for (OptionButton& operation : c_.optMipmaps) {
        operation.setBox({left, 0, optionWidth, lineHeight});
        left += optionWidth;
    }
    constexpr double labelWidth = 750;
    c_.lblFilter.setBox({inset, row(1) + gap / 2, labelWidth, boxHeight});
    c_.lstScaleFilter.setBox({inset + labelWidth, row(1) + gap / 2, 2 * optionWidth, boxHeight});
}

void TransferLayout::placeExtractOptions() {
    stack(c_.extractOptionsFrame, std::max(row(2), framesTop + leastFramesHeight - bottom_ - gap));
    c_.chkOverwriteExistingFiles.setBox({inset, row(0), leftWidth - 2 * inset, lineHeight});
    c_.chkLaunchEditor.setBox({inset, row(1), leftWidth - 2 * inset, lineHeight});
}

void TransferLayout::placeDestinations() {
    stack(c_.destinationFrame, row(5) + gap);
    const auto line = [](double left, int index, double height) {
        return Box{left, row(index), leftWidth - left - inset, height};
    };
    c_.chkDestination[ToArchive].setBox(line(inset, 0, lineHeight));
    c_.chkSaveCdds.setBox(line(inset + indent, 1, lineHeight));
    placeFolder(c_.txtCDDSBackupFolder, c_.cmdGetCDDSBackupFolder, line(inset + 2 * indent, 2, boxHeight));
    c_.chkDestination[ToBazarTemp].setBox(line(inset, 3, lineHeight));
    placeFolder(c_.txtbazarTempFolder, c_.cmdGetBazarTempFolder, line(inset + indent, 4, boxHeight));
}

void TransferLayout::placeFolder(TextBox& folder, CommandButton& browse, Box line) {
    line.width -= browseWidth + gap / 2;
    folder.setBox(line);
    browse.setBox({line.left + line.width + gap / 2, line.top, browseWidth, line.height});
}

void TransferLayout::placeResolutions() {
    const double left = margin + leftWidth + gap;
    const Box frame{left, framesTop, width() - left - margin, bottom_ - framesTop};
    c_.OptionsFrame.setBox(frame);
    const double buttons = frame.height - boxHeight - inset;
    c_.List1.setBox({inset, frameTop, frame.width - 2 * inset, buttons - frameTop - gap});
    const double half = (frame.width - 2 * inset - gap) / 2;
    c_.cmdSelAllResolution.setBox({inset, buttons, half, boxHeight});
    c_.cmdSelNoneResolution.setBox({inset + half + gap, buttons, half, boxHeight});
}

void TransferLayout::placeBelow() {
    double top = bottom_ + margin;
    c_.lblWarningTgaInsert.setBox({margin, top, width() - 2 * margin, warningHeight});
    if (c_.lblWarningTgaInsert.visible()) top += warningHeight + gap;
    const double buttons = c_.window.box().height - margin - boxHeight;
    c_.ExtractSummary.setBox({margin, top, width() - 2 * margin, buttons - top - margin});
    c_.cmdQuit.setBox({width() - margin - buttonWidth, buttons, buttonWidth, boxHeight});
    c_.chkRemember.setBox({margin, buttons, rememberWidth, boxHeight});
    c_.cmdExtractInsert.setBox({width() - margin - 2 * buttonWidth - gap, buttons, buttonWidth, boxHeight});
    c_.cmdCheck.setBox({width() - margin - 3 * buttonWidth - 2 * gap, buttons, buttonWidth, boxHeight});
}

} // namespace pelrath
