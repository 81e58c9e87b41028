#pragma once

#include "controls/list_box.hpp"
#include "controls/text_box.hpp"
#include "mainwindow/main_controls.hpp"
#include "session/session.hpp"

#include <array>
#include <span>
#include <string>

namespace pelrath {

/// What can be taken out of a pane as text.
enum class PaneCopy { Lines, Names, Offsets };

/// A copy as a pane's menu and keyboard have it.
struct PaneCopyEntry {
    PaneCopy copy;
    const char* caption; ///< with "&" before its mnemonic
    const char* key;     ///< in the portable names of keys
};

/// In the order of the menu.
[[nodiscard]] std::span<const PaneCopyEntry> paneCopyEntries();

/// Texts of the lines that are chosen in a pane.
class PaneCopies {
public:
    struct Controls {
        const std::array<ListBox, 3>& Output;
        const std::array<TextBox, 2>& Text2;
        const TextBox& Text9;
    };

    PaneCopies(const Controls& controls, const Session& session) : c_(controls), session_(session) {}

    /// Of the chosen lines, one below the other: with the pane's titles in front, and a tab between two
    /// cells; the names of the textures that they are of, each once; or in hexadecimal where in the file a
    /// texture's table of levels, or a level's pixels, begin. Empty where nothing is chosen or the pane has
    /// none of it.
    [[nodiscard]] std::string text(Pane pane, PaneCopy copy) const;

    /// Whether there is such a text, without making it.
    [[nodiscard]] bool has(Pane pane, PaneCopy copy) const {
        const bool ofTextures = pane != HeaderPane || copy == PaneCopy::Lines;
        return ofTextures && !c_.Output.at(pane).selectedRuns().empty();
    }

private:
    // Each line with its end.
    [[nodiscard]] std::string lines(Pane pane) const;
    [[nodiscard]] std::string names(Pane pane) const;
    [[nodiscard]] std::string offsets(Pane pane) const;
    [[nodiscard]] const std::string& titleOf(Pane pane) const;

    Controls c_;
    const Session& session_;
};

} // namespace pelrath
