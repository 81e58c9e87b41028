#pragma once

#include <QTextBrowser>

namespace pelrath::desktop {

/// The guide, to be read beside the program's own window.
class GuideWindow : public QTextBrowser {
public:
    /// `file` is its text, in Markdown, with its pictures named from there.
    explicit GuideWindow(const QString& file);

    /// Brings it to the front.
    void open();

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace pelrath::desktop
