#pragma once

#include "controls/control.hpp"
#include "controls/list_box.hpp"
#include "controls/text_box.hpp"

#include <array>
#include <string_view>

namespace pelrath {

/// The listing panes and the name list, which is emptied with any of them.
class ListingPanes {
public:
    struct Controls {
        std::array<ListBox, 3>& Output;
        ListBox& incrementalSearchList;
        std::array<TextBox, 2>& Text2;
        TextBox& Text3;
        TextBox& Text4;
        TextBox& Text5;
        TextBox& Text7;
        TextBox& Text9;
        Label& Label11;
    };

    explicit ListingPanes(const Controls& controls) : c_(controls) {}

    static void appendListingLine(ListBox& pane, std::string_view line) { pane.append(line); }
    void clearListingPane(ListBox& pane);
    /// Empties what is shown of an archive; the archive itself stays as it is.
    void resetArchiveDisplay();

private:
    Controls c_;
};

} // namespace pelrath
