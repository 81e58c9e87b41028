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
    Frame Frame1;                            // holds the archive, the folder, the search and the commands
    Label Label1;                            // "CDDS File Path :"
    TextBox Text1;                           // the archive's path
    CommandButton Command1;                  // chooses an archive
    CommandButton cmdReadCDDS;               // reads it again
    Label Label9;                            // "Export/Import Path :"
    TextBox Text8;                           // the folder of image files
    CommandButton cmdGetExtractInsertFolder; // chooses that folder
    CommandButton cmdExtract;                // opens the texture's dialog to extract
    CommandButton cmdInsert;                 // opens it to insert
    Label Label13;                           // "Texture :", beside the search box
    TextBox incrementalSearchText;           // finds a texture by the start of its name
    ListBox incrementalSearchList;           // the names of all textures

    // How the texture is shown.
    Frame Frame3;                      // holds the choices of how the texture is shown
    CheckBox chkGraphicDisplay;        // whether it is shown at all
    OptionGroup<3> cmdShow;            // the texture, its mask, its alpha channel
    CommandButton cmdShowTexture;      // the first of these, as a button that is never shown
    CommandButton cmdShowMask;         // the second, likewise
    CommandButton cmdShowAlphaChannel; // the third, likewise
    Label Label10;                     // "Background Color :"
    OptionGroup<9> backViewportColor;  // the swatches of the background

    // The viewport's column.
    Label Label11;                     // the viewer's status
    PictureBox dynImage;               // the viewport
    Frame frameViewportSize;           // holds the choice of its size, below it
    Label Label12;                     // "Viewport Size :"
    OptionGroup<2> viewPortSize;       // 256 or 512 pixels
    Frame SplashFrame;                 // over the viewport until an archive is read
    std::array<TextBox, 2> SplashText; // credits and disclaimer
    PictureBox SplashPicture;          // the picture below them
    Timer Timer1;                      // starts the render loop
    TextBox texelStrip;                // what is seen of the texture, and of the texel under the pointer

    // The archive's structure.
    Label Label2;  // "CDDS Type :"
    TextBox Text3; // 0C or cdds
    Label Label3;  // "File Number : "
    TextBox Text4; // how many textures the header counts
    Label Label8;  // over the header pane
    TextBox Text9; // the header pane's title line
    Label Label4;  // over the texture pane
    Label Label6;  // "Number of records : ", over the texture pane
    TextBox Text7; // how many textures are listed
    Label Label5;  // over the mipmap pane
    Label Label7;  // "Number of records : ", over the mipmap pane
    TextBox Text5; // how many levels are listed
    std::array<ListBox, 3> Output{ListBox{}, ListBox{ListBox::Choice::Several}, ListBox{}};
    std::array<PictureBox, 2> Picture1; // hold the texture and the mipmap pane
    std::array<TextBox, 2> Text2;       // their title lines
    std::array<ScrollBar, 2> HScroll;   // move them sideways
};

} // namespace pelrath
