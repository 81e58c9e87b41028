#include "desktop/qt_busy_sign.hpp"

#include "desktop/units.hpp"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace pelrath::desktop {

namespace {

// Less is done before it could be read, unless the disk is slow.
constexpr std::uint64_t shownFrom = std::uint64_t{48} << 20; // bytes
constexpr qint64 patience = 200;                             // milliseconds
constexpr int width = 380;
constexpr int height = 84;

} // namespace

void QtBusySign::open() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr) window = QApplication::activeWindow();
    if (window == nullptr) return;
    panel_ = new QFrame{window};
    panel_->setObjectName("busySign");
    panel_->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    panel_->setAutoFillBackground(true);
    panel_->setGeometry((window->width() - width) / 2, (window->height() - height) / 2, width, height);
    auto* lines = new QVBoxLayout{panel_};
    text_ = new QLabel{panel_};
    text_->setTextFormat(Qt::PlainText);
    bar_ = new QProgressBar{panel_};
    lines->addWidget(text_);
    lines->addWidget(bar_);
    panel_->show();
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void QtBusySign::show(const std::string& what, std::uint64_t done, std::uint64_t total) {
    if (!since_.isValid()) since_.start();
    const bool soonOver = total < shownFrom && since_.elapsed() < patience;
    if (soonOver && !panel_) return QCoreApplication::processEvents();
    if (!panel_) open();
    if (!panel_) return;
    constexpr std::uint64_t steps = 1000; // a progress bar counts in 32 bits
    text_->setText(text_->fontMetrics().elidedText(toQString(what), Qt::ElideMiddle, width - 30));
    bar_->setRange(0, total == 0 ? 0 : static_cast<int>(steps));
    bar_->setValue(
        total == 0 ? 0 : static_cast<int>(static_cast<double>(done) / static_cast<double>(total) * steps));
    QCoreApplication::processEvents(); // the gate drops what the user does
}

void QtBusySign::clear() {
    since_.invalidate();
    if (!panel_) return;
    delete panel_;
    QApplication::restoreOverrideCursor();
}

} // namespace pelrath::desktop
