#include "mainwindow/main_controls.hpp"

namespace pelrath {

namespace {

// Where an option stands, and what it says.
struct OptionDesign {
    Box box;
    const char* caption;
};

void design(Label& label, const Box& box, const char* caption) {
    label.setBox(box);
    label.setCaption(caption);
}

void design(CommandButton& button, const Box& box, const char* caption, const char* accessibleName) {
    button.setBox(box);
    button.setCaption(caption);
    button.setAccessibleName(accessibleName);
}

void design(OptionButton& option, const OptionDesign& design) {
    option.setBox(design.box);
    option.setCaption(design.caption);
}

void designShown(TextBox& text, const Box& box, const char* accessibleName) {
    text.setBox(box);
    text.setLocked(true);
    text.setAccessibleName(accessibleName);
}

void designArchiveFrame(MainControls& c) {
    c.Frame1.setBox({105, 45, 10050, 1065});
    design(c.Label1, {120, 135, 1950, 360}, "CDDS File Path :");
    designShown(c.Text1, {2070, 135, 2670, 360}, "CDDS file path");
    design(c.Command1, {4785, 135, 390, 360}, "...", "Choose a CDDS file");
    design(c.cmdReadCDDS, {5220, 135, 690, 360}, "Read", "Read the CDDS file again");
    design(c.Label9, {120, 570, 1950, 360}, "Export/Import Path :");
    c.Text8.setBox({2070, 570, 2670, 360});
    c.Text8.setAccessibleName("Export/Import path");
    design(c.cmdGetExtractInsertFolder, {4785, 570, 390, 360}, "...", "Choose the Export/Import folder");
    design(c.cmdExtract, {8970, 135, 960, 360}, "Extract", "Extract the texture to image files");
    design(c.cmdInsert, {8970, 570, 960, 360}, "Insert", "Insert image files into the texture");
    design(c.Label13, {6045, 135, 915, 360}, "Texture :");
    c.incrementalSearchText.setBox({6960, 135, 1890, 360});
    c.incrementalSearchText.setAccessibleName("Find a texture by the start of its name");
    c.incrementalSearchList.setBox({6060, 525, 2790, 465});
    c.incrementalSearchList.setAccessibleName("Texture names");
}

void designViewFrame(MainControls& c) {
    c.Frame3.setBox({10230, 45, 4410, 1065});
    c.chkGraphicDisplay.setBox({120, 75, 1500, 300});
    c.chkGraphicDisplay.setCaption("Display");
    design(c.cmdShow[0], {{120, 390, 1200, 300}, "Texture"});
    design(c.cmdShow[1], {{1380, 390, 960, 300}, "Mask"});
    design(c.cmdShow[2], {{2400, 390, 1890, 300}, "Alpha Channel"});
    c.cmdShowTexture.setCaption("Texture");
    c.cmdShowMask.setCaption("Mask");
    c.cmdShowAlphaChannel.setCaption("Alpha Channel");
    for (CommandButton* hidden : {&c.cmdShowTexture, &c.cmdShowMask, &c.cmdShowAlphaChannel}) {
        hidden->setVisible(false);
    }
    design(c.Label10, {120, 705, 1860, 300}, "Background Color :");
    constexpr std::array colorNames{"Black", "Grey", "Red",     "Yellow", "Green",
                                    "Cyan",  "Blue", "Magenta", "White"};
    for (std::size_t i = 0; i < c.backViewportColor.size(); ++i) {
        c.backViewportColor[i].setBox({1980.0 + 264.0 * static_cast<double>(i), 735, 240, 240});
        c.backViewportColor[i].setAccessibleName(colorNames.at(i));
    }
}

void designViewport(MainControls& c) {
    design(c.Label11, {105, 1170, 4215, 285}, "");
    c.Label11.setVisible(false);
    c.dynImage.setBox({2040, 1500, 5355, 1740});
    c.dynImage.setBorder(1);
    c.dynImage.setAccessibleName("Texture");
    c.frameViewportSize.setBox({90, 9060, 3840, 510});
    design(c.Label12, {105, 105, 1350, 300}, "Viewport Size :");
    design(c.viewPortSize[0], {{1470, 105, 1170, 300}, "256 x 256"});
    design(c.viewPortSize[1], {{2655, 105, 1170, 300}, "512 x 512"});
    designShown(c.texelStrip, {3930, 9075, 3870, 480}, "Texel and view");
    c.SplashFrame.setBox({105, 1515, 7680, 7680});
    for (TextBox& text : c.SplashText) {
        text.setLocked(true);
    }
    c.SplashText[0].setAccessibleName("Credits");
    c.SplashText[1].setAccessibleName("Disclaimer");
}

void designPane(MainControls& c, std::size_t pane, const Box& box, const char* name) {
    c.Picture1[pane].setBox(box);
    c.Picture1[pane].setBorder(1);
    c.Text2[pane].setBox({-30, -30, box.width, 300});
    c.Text2[pane].setLocked(true);
    c.Text2[pane].setTabStop(false);
    c.Text2[pane].setAccessibleName(std::string{name} + " columns");
    c.Output[pane].setAccessibleName(name);
    c.HScroll[pane].setBox({0, 0, 0, 250});
    c.HScroll[pane].setAccessibleName(std::string{name} + " sideways");
}

void designStructure(MainControls& c) {
    design(c.Label8, {8025, 1245, 2400, 255}, "CDDS Header ");
    design(c.Label2, {10350, 1170, 1230, 285}, "CDDS Type :");
    designShown(c.Text3, {11640, 1170, 645, 285}, "CDDS type");
    design(c.Label3, {12300, 1170, 1395, 285}, "File Number : ");
    designShown(c.Text4, {13695, 1170, 930, 285}, "File number");
    designShown(c.Text9, {8025, 1515, 5445, 285}, "CDDS header columns");
    c.Text9.setTabStop(false);
    c.Output[HeaderPane].setBox({8010, 1785, 5460, 240});
    c.Output[HeaderPane].setAccessibleName("CDDS header");

    design(c.Label4, {8040, 2250, 4050, 345}, "Texture File Name and link to Mipmap index array");
    design(c.Label6, {12165, 2265, 1530, 345}, "Number of records : ");
    designShown(c.Text7, {13695, 2220, 930, 285}, "Number of textures");
    designPane(c, TexturePane, {8025, 2595, 6420, 2745}, "Textures");

    design(c.Label5, {8070, 5520, 4050, 345}, "Texture Mipmap array and Pointers to Texture Pixels");
    design(c.Label7, {12165, 5505, 1530, 345}, "Number of records : ");
    designShown(c.Text5, {13710, 5460, 930, 285}, "Number of mipmap levels");
    designPane(c, MipmapPane, {8070, 5880, 6405, 2640}, "Mipmap levels");
}

} // namespace

MainControls::MainControls() {
    window.setBox({0, 0, 18900, 11400});
    designArchiveFrame(*this);
    designViewFrame(*this);
    designViewport(*this);
    designStructure(*this);
}

} // namespace pelrath
