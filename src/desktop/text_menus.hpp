#pragma once

#include "desktop/file_manager.hpp"

#include <QMenu>
#include <QPointer>

#include <functional>
#include <map>

class QContextMenuEvent;

namespace pelrath::desktop {

/// What the context menus of texts have beside the toolkit's own entries: the files that a text names can be
/// shown in the file manager, be it a message, a summary or a path. A menu to which nothing would be added is
/// the toolkit's.
class TextMenus : public QObject {
public:
    TextMenus(Refresh& refresh, FileManager& files);

    /// `add` fills the end of the menu of a box that lives as long as this.
    void extend(const QWidget& box, std::function<void(QMenu&)> add) { more_[&box] = std::move(add); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool showMenu(QWidget& text, const QContextMenuEvent& event);

    Refresh& refresh_;
    FileManager& files_;
    std::map<const QWidget*, std::function<void(QMenu&)>> more_;
};

} // namespace pelrath::desktop
