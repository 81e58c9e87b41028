#include "mainwindow/archive_listing.hpp"

namespace pelrath {

void ArchiveListing::clearListingPane(ListBox& pane) {
    pane.clear();
    c_.incrementalSearchList.clear();
}

void ArchiveListing::resetArchiveDisplay() {
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
