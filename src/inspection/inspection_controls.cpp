#include "inspection/inspection_controls.hpp"

namespace pelrath::inspection {

namespace {

// All in twips.
constexpr double margin = 150;
constexpr double gap = 90;
constexpr double labelHeight = 285;
constexpr double boxHeight = 360; // of a text box or a button
constexpr double labelWidth = 750;
constexpr double levelWidth = 2700;
constexpr double checkWidth = 3600;
constexpr double buttonWidth = 1500;
constexpr double findingsHeight = 1650;
constexpr double stripHeight = 540; // two lines

constexpr double startWidth = 15000;
constexpr double startHeight = 9900;
constexpr double leastWidth = 12000; // the strip is seen whole
constexpr double leastHeight = 6900;

} // namespace

InspectionControls::InspectionControls() {
    window.setBox({0, 0, startWidth, startHeight});
    window.setSmallestSize(leastWidth, leastHeight);
    txtFindings.setLocked(true);
    txtFindings.setAccessibleName("Findings");
    lblLevel.setCaption("Level :");
    lstLevel.setAccessibleName("Level");
    chkTransparency.setCaption("Show transparency");
    chkTransparency.setChecked(true);
    lblPanel[Before].setCaption("In the archive now");
    lblPanel[After].setCaption("Once it is inserted");
    lblPanel[Difference].setCaption("Difference, eight times as strong");
    pictures.setAccessibleName("Pictures: now, once it is inserted, and the difference");
    txtStrip.setLocked(true);
    txtStrip.setAccessibleName("Texel and errors");
    cmdClose.setCaption("Close");
}

void arrange(InspectionControls& c) {
    const double width = c.window.box().width - 2 * margin;
    const double buttons = c.window.box().height - margin - boxHeight;
    c.txtFindings.setBox({margin, margin, width, findingsHeight});
    double top = margin + findingsHeight + margin;
    c.lblLevel.setBox({margin, top, labelWidth, boxHeight});
    c.lstLevel.setBox({margin + labelWidth, top, levelWidth, boxHeight});
    c.chkTransparency.setBox({margin + labelWidth + levelWidth + 2 * margin, top, checkWidth, boxHeight});
    top += boxHeight + gap;
    const double panel = (width - 2 * panelGap) / 3;
    double left = margin;
    for (Label& title : c.lblPanel) {
        title.setBox({left, top, panel, labelHeight});
        left += panel + panelGap;
    }
    top += labelHeight;
    const double strip = buttons + boxHeight - stripHeight;
    c.pictures.setBox({margin, top, width, strip - gap - top});
    c.txtStrip.setBox({margin, strip, width - buttonWidth - gap, stripHeight});
    c.cmdClose.setBox({margin + width - buttonWidth, buttons, buttonWidth, boxHeight});
}

} // namespace pelrath::inspection
