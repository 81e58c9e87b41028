#pragma once

#include "controls/check_box.hpp"
#include "controls/control.hpp"
#include "controls/drop_down_list.hpp"
#include "controls/option_group.hpp"
#include "controls/text_box.hpp"
#include "controls/timer.hpp"
#include "controls/window.hpp"
#include "several/texture_list.hpp"
#include "several/told_lines.hpp"

namespace pelrath::several {

/// The buttons of `direction`, `kind` and `levels` by index.
enum Direction : std::size_t { Extract = 0, Insert = 1 };
enum Kind : std::size_t { DdsFiles = 0, ImageFiles = 1 };
enum LevelChoice : std::size_t { LargestLevel = 0, AllLevels = 1, LevelChain = 2 };

/// The controls of the window for several textures. Their places are the face's.
struct SeveralControls {
    SeveralControls();

    Window window;
    Timer rest; ///< ticks once the choices have rested

    // The textures.
    Label filterLabel;
    TextBox filter;
    TextureList textures;
    Label marks; // how many are checked
    CommandButton all;
    CommandButton none;

    // What is to be done with them.
    Label directionLabel;
    OptionGroup<2> direction;
    Label kindLabel;
    OptionGroup<2> kind;
    Label levelsLabel;
    OptionGroup<3> levels; // of an extraction
    CheckBox create;       // of an insertion
    Label scaleFilterLabel;
    DropDownList scaleFilter; // with which levels are made
    Label folderLabel;
    TextBox folder;
    CommandButton chooseFolder;
    CheckBox overwrite; // of an extraction
    CheckBox safeCopy;  // of an insertion
    TextBox safeCopyFolder;
    CommandButton chooseSafeCopyFolder;
    CheckBox remember;

    // The plan, then the report.
    Label toldLabel;
    Label summary;
    ToldList told;
    Label progressText;
    ProgressBar progress;
    CommandButton run;
    CommandButton stop;
    CommandButton saveReport;
    CommandButton backToPlan;
    CommandButton close;
};

} // namespace pelrath::several
