#include "several/several_controls.hpp"

namespace pelrath::several {

SeveralControls::SeveralControls() {
    window.setCaption("Several Textures");
    window.setSmallestSize(9000, 6000);
    rest.setEnabled(false);
    rest.setInterval(250);

    filterLabel.setCaption("Filter :");
    filter.setAccessibleName("Filter of the textures");
    textures.setAccessibleName("Textures");
    all.setCaption("All Shown");
    none.setCaption("None Shown");

    directionLabel.setCaption("Direction :");
    direction[Extract].setCaption("Extract to files");
    direction[Insert].setCaption("Insert from files");
    kindLabel.setCaption("Files :");
    kind[DdsFiles].setCaption("DDS");
    kind[ImageFiles].setCaption("BMP and TGA images");
    levelsLabel.setCaption("Levels :");
    levels[LargestLevel].setCaption("Largest");
    levels[AllLevels].setCaption("All, a file each");
    levels[LevelChain].setCaption("All in one file");
    create.setCaption("Create all from the largest");
    scaleFilterLabel.setCaption("with");
    scaleFilter.setAccessibleName("Filter of the created levels");
    scaleFilter.setLines({"Nearest Filter", "Linear filter", "Bilinear filter", "Box filter",
                          "Triangle filter", "Bell filter", "B Spline filter", "Lanczos filter",
                          "Mitchell filter"});
    folderLabel.setCaption("Folder :");
    folder.setAccessibleName("Folder of the files");
    chooseFolder.setCaption("...");
    chooseFolder.setAccessibleName("Choose the folder of the files");
    overwrite.setCaption("Overwrite existing files");
    safeCopy.setCaption("Safe copy in");
    safeCopyFolder.setAccessibleName("Folder of the safe copy");
    chooseSafeCopyFolder.setCaption("...");
    chooseSafeCopyFolder.setAccessibleName("Choose the folder of the safe copy");
    remember.setCaption("Remember these choices");

    told.setAccessibleName("Plan");
    progress.setAccessibleName("Progress");
    run.setCaption("Run");
    stop.setCaption("Stop");
    saveReport.setCaption("Save Report...");
    backToPlan.setCaption("Back to Plan");
    close.setCaption("Close");
}

} // namespace pelrath::several
