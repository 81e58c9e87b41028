#include "copies/safe_copies_controls.hpp"

namespace pelrath::copies {

namespace {

// All in twips.
constexpr double margin = 150;
constexpr double gap = 90;
constexpr double labelHeight = 285;
constexpr double boxHeight = 360; // of a text box or a button
constexpr double labelWidth = 960;
constexpr double browseWidth = 390; // of "..."
constexpr double buttonWidth = 1500;
constexpr double summaryHeight = 1080;

constexpr double startWidth = 10500;
constexpr double startHeight = 8700;
constexpr double leastWidth = 7500;
constexpr double leastHeight = 6300;

} // namespace

SafeCopiesControls::SafeCopiesControls() {
    window.setBox({0, 0, startWidth, startHeight});
    window.setSmallestSize(leastWidth, leastHeight);
    window.setCaption("Safe Copies");
    lblFolder.setCaption("Folder :");
    txtFolder.setLocked(true);
    txtFolder.setAccessibleName("Folder of the safe copies");
    cmdFolder.setCaption("...");
    cmdFolder.setAccessibleName("Choose the folder of the safe copies");
    lstCopies.setAccessibleName("Safe copies");
    lstTextures.setAccessibleName("Textures that differ from now");
    cmdAll.setCaption("All");
    cmdNone.setCaption("None");
    txtSummary.setLocked(true);
    txtSummary.setAccessibleName("Summary");
    cmdStop.setCaption("Stop");
    cmdRestore.setCaption("Restore");
    cmdClose.setCaption("Close");
}

void arrange(SafeCopiesControls& c) {
    const double width = c.window.box().width - 2 * margin;
    const double height = c.window.box().height;
    c.lblFolder.setBox({margin, margin, labelWidth, boxHeight});
    c.txtFolder.setBox({margin + labelWidth, margin, width - labelWidth - browseWidth - gap / 2, boxHeight});
    c.cmdFolder.setBox({margin + width - browseWidth, margin, browseWidth, boxHeight});

    const double buttons = height - margin - boxHeight;
    const double summary = buttons - margin - summaryHeight;
    double top = margin + boxHeight + margin;
    const double list = (summary - margin - top) / 2 - labelHeight - gap;
    c.lblCopies.setBox({margin, top, width, labelHeight});
    c.lstCopies.setBox({margin, top + labelHeight, width, list});
    top += labelHeight + list + 2 * gap;
    const double marks = width - buttonWidth - gap; // the buttons that set them stand beside the list
    c.lblTextures.setBox({margin, top, width, labelHeight});
    c.lstTextures.setBox({margin, top + labelHeight, marks, list});
    c.cmdAll.setBox({margin + marks + gap, top + labelHeight, buttonWidth, boxHeight});
    c.cmdNone.setBox({margin + marks + gap, top + labelHeight + boxHeight + gap, buttonWidth, boxHeight});

    c.txtSummary.setBox({margin, summary, width, summaryHeight});
    double left = margin + width;
    for (CommandButton* button : {&c.cmdClose, &c.cmdRestore, &c.cmdStop}) {
        left -= buttonWidth;
        button->setBox({left, buttons, buttonWidth, boxHeight});
        left -= gap;
    }
}

} // namespace pelrath::copies
