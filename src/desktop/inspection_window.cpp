#include "desktop/inspection_window.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace pelrath::desktop {

// The widgets are made in the order in which Tab goes through them.
InspectionWindow::InspectionWindow(inspection::Inspection& model, Binder& binder)
    : ModelDialog(model.window, binder) {
    setObjectName("Inspection");
    QPlainTextEdit& findings = make<QPlainTextEdit>("txtFindings");
    findings.setTabChangesFocus(true);
    binder.bind(model.txtFindings, findings);
    QLabel& level = make<QLabel>("lblLevel");
    binder.bind(model.lblLevel, level, 'L');
    QComboBox& levels = make<QComboBox>("lstLevel");
    binder.bind(model.lstLevel, levels);
    level.setBuddy(&levels);
    binder.bind(model.chkTransparency, make<QCheckBox>("chkTransparency"), 't');
    for (std::size_t i = 0; i < model.lblPanel.size(); ++i) {
        binder.bind(model.lblPanel[i], make<QLabel>("lblPanel" + QString::number(i)));
    }
    pictures_ = &make<InspectionPictures>("pictures");
    pictures_->showOf(model, binder.refresh());
    binder.attach(model.pictures, *pictures_, [] {});
    QPlainTextEdit& strip = make<QPlainTextEdit>("txtStrip");
    strip.setTabChangesFocus(true);
    strip.setFrameShape(QFrame::NoFrame);
    strip.setLineWrapMode(QPlainTextEdit::NoWrap);
    strip.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    strip.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    strip.viewport()->setAutoFillBackground(false);
    strip.document()->setDocumentMargin(1);
    QFont font = binder.screen().fixedFont();
    font.setPointSizeF(font.pointSizeF() - 1);
    strip.setFont(font);
    binder.bind(model.txtStrip, strip);
    QPushButton& close = make<QPushButton>("cmdClose");
    close.setDefault(true);
    binder.bind(model.cmdClose, close, 'C');
}

void InspectionWindow::showEvent(QShowEvent* event) {
    ModelDialog::showEvent(event);
    pictures_->setFocus();
}

} // namespace pelrath::desktop
