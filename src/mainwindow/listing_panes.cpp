#include "mainwindow/listing_panes.hpp"

namespace pelrath {

void ListingPanes::clearListingPane(ListBox& pane) {
    pane.clear();
    c_.incrementalSearchList.clear();
}

void ListingPanes::resetArchiveDisplay() {
    for (ListBox& pane : c_.Output) {
        clearListingPane(pane);
    }
    for (TextBox* text :
         {&c_.Text2[0], &c_.Text2[1], &c_.Text3, &c_.Text4, &c_.Text5, &c_.Text7, &c_.Text9}) {
        text->setText("");
    }
    c_.Label11.setVisible(false);
    c_.Label11.setCaption("");
}

} // namespace pelrath
