#include "mainwindow/main.hpp"

namespace pelrath {

// The order of the fields is the order in which they need one another; a brace list names a concern's
// controls in the order of its own declaration.
Main::Main(Session& session, const MainServices& services)
    : recovery(services.boxes, session),
      disclaimer(session.disclaimerAccepted, services.screen, services.windows),
      folders(services.folderPicker, window),
      transfer(session, {services.boxes, services.windows, services.associations,
                         [this] { frmGetBazarTempFolder.show(); }, [this] { frmGetCDDSBackupFolder.show(); },
                         recovery, &services.busy}),
      frmGetBazarTempFolder(FolderChoice::bazarTempTexts, session.settings.bazarTempFolder, transfer.window,
                            {folders, services.boxes, services.windows}),
      frmGetCDDSBackupFolder(FolderChoice::cddsBackupTexts, session.settings.cddsBackupFolder,
                             transfer.window, {folders, services.boxes, services.windows}),
      viewer_({session.viewer, services.surface, services.pump, services.boxes, Label11, cmdShow}),
      look_(texelStrip, session, viewer_, services.boxes),
      splash_({SplashFrame, SplashText, SplashPicture, Frame1, Text9, dynImage}, services.screen),
      layout_({window, Frame1, dynImage, frameViewportSize, texelStrip, SplashFrame, Label4, Label5, Label6,
               Label7, Label8, Text4, Text5, Text7, Text9, Text2, Output, Picture1, HScroll},
              session.viewer, services.screen, splash_),
      viewport_({chkGraphicDisplay, viewPortSize, Label10, backViewportColor, cmdShow, cmdShowTexture,
                 cmdShowMask, cmdShowAlphaChannel, Output[TexturePane], Timer1},
                session, viewer_, layout_),
      listing_({Output, incrementalSearchList, Text2, Text3, Text4, Text5, Text7, Text9, Label11}),
      copies_({Output, Text2, Text9}, session),
      choice_({Output, incrementalSearchList, Label11}, session, viewer_, look_, services.boxes),
      search_({incrementalSearchText, incrementalSearchList, Output[TexturePane]}),
      reading_({window,
                Command1,
                cmdReadCDDS,
                Text1,
                Text3,
                Text4,
                Text5,
                Text7,
                Text9,
                Text2,
                Output,
                incrementalSearchList,
                incrementalSearchText,
                dynImage,
                {&Command1, &cmdReadCDDS, &cmdGetExtractInsertFolder, &cmdExtract, &cmdInsert}},
               {services.boxes, services.fileOpen, services.pump, recovery}, session, listing_, layout_,
               splash_, viewer_),
      exportImportFolder_({cmdGetExtractInsertFolder, Text8}, session, folders),
      handOff_({window, Text8, cmdExtract, cmdInsert}, services.boxes, session, look_, transfer),
      lifeCycle_(
          {window, Timer1, Label11, chkGraphicDisplay, SplashFrame, dynImage, Output[TexturePane], Text8},
          services.screen, services.boxes, session,
          {viewer_, viewport_, layout_, splash_, disclaimer, recovery}) {}

} // namespace pelrath
