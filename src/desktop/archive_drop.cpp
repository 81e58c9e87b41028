#include "desktop/archive_drop.hpp"

#include "opening/dropped_archive.hpp"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

namespace pelrath::desktop {

namespace {

std::optional<std::string> archiveIn(const QMimeData& data) {
    std::vector<std::string> uris;
    for (const QUrl& url : data.urls()) {
        uris.push_back(url.toEncoded().toStdString());
    }
    return droppedArchive(uris);
}

} // namespace

ArchiveDrop::ArchiveDrop(QWidget& window, Refresh& refresh, std::function<void(const std::string& path)> open)
    : QObject(&window), window_(window), refresh_(refresh), open_(std::move(open)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
    for (QLineEdit* box : window.findChildren<QLineEdit*>()) {
        box->installEventFilter(this);
    }
}

bool ArchiveDrop::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto& drop = static_cast<QDropEvent&>(*event);
        if (take(drop)) return true;
        if (watched == &window_) drop.ignore();
        return watched == &window_;
    }
    default:
        return false;
    }
}

bool ArchiveDrop::take(QDropEvent& event) {
    const auto archive = archiveIn(*event.mimeData());
    if (!archive) return false;
    event.setDropAction(Qt::CopyAction); // the file stays where it is
    event.accept();
    if (event.type() != QEvent::Drop) return true;
    // Whom it was dragged from is not to wait for the archive to be read.
    const auto open = [this, path = *archive] { refresh_.operate(window_, [&] { open_(path); }); };
    QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
    return true;
}

} // namespace pelrath::desktop
