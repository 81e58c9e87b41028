#include "desktop/guide_window.hpp"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QUrl>

namespace pelrath::desktop {

GuideWindow::GuideWindow(const QString& file) {
    constexpr QSize room{90, 42}; // characters of the usual width, and lines
    constexpr double margin = 16; // pixels
    setObjectName("Guide");
    setWindowTitle("Pelrath - Guide");
    setAccessibleName("Guide");
    setOpenExternalLinks(true);
    setSource(QUrl::fromLocalFile(file), QTextDocument::MarkdownResource);
    document()->setDocumentMargin(margin);
    const QFontMetrics font = fontMetrics();
    resize(font.averageCharWidth() * room.width(), font.lineSpacing() * room.height());
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
