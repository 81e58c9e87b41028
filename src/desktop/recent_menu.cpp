#include "desktop/recent_menu.hpp"

#include "desktop/units.hpp"
#include "platform/posix/files.hpp"

#include <QMenu>
#include <QPointer>

namespace pelrath::desktop {

void RecentMenu::addTo(QMenu& menu) {
    if (archives_.paths().empty()) return;
    menu.addSection("Recent Archives");
    int number = 0;
    for (const std::string& path : archives_.paths()) {
        addArchive(menu, path, ++number);
    }
    QAction* clear = menu.addAction("Clear &This List");
    connect(clear, &QAction::triggered, this, [this] { archives_.clear(); });
    menu.addSeparator();
}

void RecentMenu::addArchive(QMenu& menu, const std::string& path, int number) {
    constexpr int longest = 420; // pixels
    const QString shown = menu.fontMetrics().elidedText(toQString(path), Qt::ElideMiddle, longest);
    QAction* entry = menu.addAction(QString{"&%1  "}.arg(number % 10) + QString{shown}.replace('&', "&&"));
    entry->setToolTip(toQString(path));
    connect(entry, &QAction::triggered, this,
            [this, path] { refresh_.operate(window_, [&] { model_.openArchive(path); }); });
    looks_.run([path, entry = QPointer{entry}](const Background::Post& post) {
        if (!fileExists(path))
            post([entry] {
                if (entry) entry->setEnabled(false);
            });
    });
}

} // namespace pelrath::desktop
