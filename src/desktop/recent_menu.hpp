#pragma once

#include "desktop/background.hpp"
#include "desktop/refresh.hpp"
#include "mainwindow/main.hpp"

class QMenu;
class QWidget;

namespace pelrath::desktop {

/// The archives opened last as entries of a menu: one that is gone is greyed as soon as that is known.
class RecentMenu : public QObject {
public:
    RecentMenu(QWidget& window, Main& model, RecentArchives& archives, Refresh& refresh)
        : window_(window), model_(model), archives_(archives), refresh_(refresh) {}

    void addTo(QMenu& menu);

private:
    void addArchive(QMenu& menu, const std::string& path, int number);

    QWidget& window_;
    Main& model_;
    RecentArchives& archives_;
    Refresh& refresh_;
    Background looks_;
};

} // namespace pelrath::desktop
