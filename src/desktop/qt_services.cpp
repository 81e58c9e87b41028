#include "desktop/qt_services.hpp"

#include "desktop/units.hpp"
#include "platform/posix/files.hpp"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace pelrath::desktop {

namespace {

constexpr qint64 pumpPause = 100; // milliseconds: as long as nobody feels it

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

BoxAnswer QtMessageBoxes::show(const std::string& text, const std::string& title, BoxIcon icon,
                               BoxButtons buttons) {
    busy_.clear();
    QMessageBox box{QApplication::activeWindow()};
    box.setTextFormat(Qt::PlainText); // paths and names are shown as they are
    box.setText(toQString(text).replace("\r\n", "\n"));
    box.setWindowTitle(toQString(title));
    box.setAccessibleDescription(box.text()); // or only the label inside would say it
    box.setIcon(iconOf(icon));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setStandardButtons(buttons == BoxButtons::Ok ? QMessageBox::Ok
                                                     : QMessageBox::Ok | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Ok);
    const Gate::Turn turn{refresh_.gate(), &box};
    return box.exec() == QMessageBox::Ok || buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::Cancel;
}

std::optional<std::string> QtFileOpenDialog::choose(const Request& request) {
    QFileDialog dialog{QApplication::activeWindow(), toQString(request.title), toQString(request.folder),
                       toQString(request.filter)};
    dialog.setFileMode(QFileDialog::ExistingFile);
    const Gate::Turn turn{refresh_.gate(), &dialog};
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return toUtf8(dialog.selectedFiles().constFirst());
}

std::optional<std::string> askWhereToSave(Refresh& refresh, const std::string& title,
                                          const std::string& suggestion) {
    QFileDialog dialog{QApplication::activeWindow(), toQString(title)};
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDirectory(toQString(parentFolder(suggestion)));
    dialog.selectFile(toQString(fileName(suggestion)));
    const Gate::Turn turn{refresh.gate(), &dialog};
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return toUtf8(dialog.selectedFiles().constFirst());
}

void QtEventPump::processPending() {
    if (sinceLast_.elapsed() < pumpPause) return;
    refresh_.flush();
    QCoreApplication::processEvents();
    sinceLast_.start();
}

void QtEventPump::waitForEvents() {
    refresh_.flush();
    const Gate::Turn turn{refresh_.gate(), nullptr};
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    sinceLast_.start();
}

} // namespace pelrath::desktop
