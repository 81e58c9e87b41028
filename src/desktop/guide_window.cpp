#include "desktop/guide_window.hpp"

#include "desktop/placing.hpp"

#include <QFontMetrics>
#include <QImage>
#include <QKeyEvent>
#include <QScrollBar>
#include <QUrl>

namespace pelrath::desktop {

namespace {

constexpr double margin = 16; // pixels

// What a window manager may put around the window; known only once it is shown.
constexpr QSize managersFrame{8, 40}; // pixels

} // namespace

GuideWindow::GuideWindow(const QString& file) {
    constexpr QSize room{100, 44}; // characters of the usual width, and lines
    setObjectName("Guide");
    setWindowTitle("Pelrath - Guide");
    setAccessibleName("Guide");
    setOpenExternalLinks(true);
    document()->setDocumentMargin(margin);
    const QFontMetrics font = fontMetrics();
    const QSize wanted{font.averageCharWidth() * room.width(), font.lineSpacing() * room.height()};
    const QList<QRect> areas = freeAreas();
    resize(wanted.boundedTo(areas.constFirst().size() - managersFrame));
    move(onScreen({areas.constFirst().center() - rect().center(), size() + managersFrame}, areas));
    setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
}

// Pictures are no wider than the text.
QVariant GuideWindow::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
    QImage picture{source().resolved(name).toLocalFile()};
    const int room = width() - 2 * (static_cast<int>(margin) + verticalScrollBar()->sizeHint().width());
    return picture.width() > room ? picture.scaledToWidth(room, Qt::SmoothTransformation) : picture;
}

void GuideWindow::open() {
    show();
    raise();
    activateWindow();
}

void GuideWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QTextBrowser::keyPressEvent(event);
    }
}

} // namespace pelrath::desktop
