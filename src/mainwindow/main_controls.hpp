#pragma once

#include "controls/check_box.hpp"
#include "controls/control.hpp"
#include "controls/list_box.hpp"
#include "controls/option_group.hpp"
#include "controls/scroll_bar.hpp"
#include "controls/text_box.hpp"
#include "controls/timer.hpp"
#include "controls/window.hpp"

#include <array>

namespace pelrath {

/// The panes of `Output`.
enum Pane : std::size_t { TexturePane = 0, MipmapPane = 1, HeaderPane = 2 };

/// The controls of the window Main, in their design state after construction.
struct MainControls {
    MainControls();

    Window window;

    // The archive and what is done with it.
    Frame Frame1;
    Label Label1;              // "CDDS File Path :"
    TextBox Text1;             // the archive's path
    CommandButton Command1;    // chooses an archive
    CommandButton cmdReadCDDS; // reads it again
    Label Label9;              // "Export/Import Path :"
    TextBox Text8;
    CommandButton cmdGetExtractInsertFolder; // chooses the folder
    CommandButton cmdExtract;
    CommandButton cmdInsert;
    Label Label13; // over the search box
    TextBox incrementalSearchText;
    ListBox incrementalSearchList;

    // How the texture is shown.
    Frame Frame3;
    CheckBox chkGraphicDisplay;
    OptionGroup<3> cmdShow;
    CommandButton cmdShowTexture;
    CommandButton cmdShowMask;
    CommandButton cmdShowAlphaChannel;
    Label Label10; // "Background Color :"
    OptionGroup<9> backViewportColor;

    // The viewport's column.
    Label Label11; // the viewer's status
    PictureBox dynImage;
    Frame frameViewportSize;
    Label Label12; // "Viewport Size :"
    OptionGroup<2> viewPortSize;
    Frame SplashFrame;
    std::array<TextBox, 2> SplashText;
    PictureBox SplashPicture;
    Timer Timer1;

    // The archive's structure.
    Label Label2; // "CDDS Type :"
    TextBox Text3;
    Label Label3; // "File Number : "
    TextBox Text4;
    Label Label8; // over the header pane
    TextBox Text9;
    Label Label4; // over the texture pane
    Label Label6; // "Number of records : "
    TextBox Text7;
    Label Label5; // over the mipmap pane
    Label Label7; // "Number of records : "
    TextBox Text5;
    std::array<ListBox, 3> Output{ListBox{}, ListBox{ListBox::Choice::Several}, ListBox{}};
    std::array<PictureBox, 2> Picture1; // hold the texture and the mipmap pane
    std::array<TextBox, 2> Text2;       // their title lines
    std::array<ScrollBar, 2> HScroll;
};

} // namespace pelrath
