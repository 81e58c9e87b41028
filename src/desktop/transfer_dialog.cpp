#include "desktop/transfer_dialog.hpp"

#include "desktop/bordered_box.hpp"
#include "desktop/check_list_view.hpp"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include <array>

namespace pelrath::desktop {

// The widgets are made in the order in which Tab goes through them.
TransferDialog::TransferDialog(TransferControls& model, Binder& binder)
    : ModelDialog(model.window, binder), model_(model), binder_(binder) {
    setObjectName("TextureExtractionInsertion");
    buildTexture();
    buildFileKind();
    buildMipmaps();
    buildResolutions();
    buildOptions();
    buildDestinations();
    buildBelow();
}

QGroupBox& TransferDialog::frame(Frame& model, const QString& name) {
    QGroupBox& view = make<QGroupBox>(name, *this);
    binder_.bind(model, view);
    return view;
}

void TransferDialog::buildTexture() {
    binder_.bind(model_.Label1, make<QLabel>("Label1", *this));
    binder_.bind(model_.Text1, make<QLineEdit>("Text1", *this));
}

void TransferDialog::buildFileKind() {
    QGroupBox& box = frame(model_.FileFormat, "FileFormat");
    QButtonGroup& group = make<QButtonGroup>("fileTypes", box);
    constexpr std::array<char16_t, 2> mnemonics{u'M', u'D'};
    for (std::size_t i = 0; i < model_.optOutFileType.size(); ++i) {
        const QString name = "optOutFileType" + QString::number(i);
        binder_.bind(model_.optOutFileType[i], make<QRadioButton>(name, box), group, mnemonics.at(i));
    }
    const OptionButton& native = model_.optOutFileType[NativeFileType];
    auto& view = *box.findChild<QRadioButton*>("optOutFileType0");
    binder_.attach(model_.optOutFileType[NativeFileType], view, [&native, &view] {
        if (native.caption() == "TGA") view.setText("T&GA"); // which has no M
    });
}

void TransferDialog::buildMipmaps() {
    QGroupBox& box = frame(model_.Mipmaps, "Mipmaps");
    BorderedBox& holder = make<BorderedBox>("Picture1", box);
    binder_.bind(model_.Picture1, holder);
    QButtonGroup& group = make<QButtonGroup>("operations", box);
    constexpr std::array<char16_t, 4> mnemonics{u'l', u'b', u'x', u'C'};
    for (std::size_t i = 0; i < model_.optMipmaps.size(); ++i) {
        const QString name = "optMipmaps" + QString::number(i);
        binder_.bind(model_.optMipmaps[i], make<QRadioButton>(name, holder.inside()), group, mnemonics.at(i));
    }
    QLabel& caption = make<QLabel>("lblFilter", box);
    binder_.bind(model_.lblFilter, caption, 'F');
    QComboBox& filters = make<QComboBox>("lstScaleFilter", box);
    binder_.bind(model_.lstScaleFilter, filters);
    caption.setBuddy(&filters);
}

void TransferDialog::buildResolutions() {
    QGroupBox& box = frame(model_.OptionsFrame, "OptionsFrame");
    CheckListView& list = make<CheckListView>("List1", box);
    list.setFont(binder_.screen().fixedFont());
    list.bindTo(model_.List1, binder_);
    binder_.bind(model_.cmdSelAllResolution, make<QPushButton>("cmdSelAllResolution", box), 'A');
    binder_.bind(model_.cmdSelNoneResolution, make<QPushButton>("cmdSelNoneResolution", box), 'N');
}

void TransferDialog::buildOptions() {
    QGroupBox& box = frame(model_.extractOptionsFrame, "extractOptionsFrame");
    binder_.bind(model_.chkOverwriteExistingFiles, make<QCheckBox>("chkOverwriteExistingFiles", box), 'O');
    binder_.bind(model_.chkLaunchEditor, make<QCheckBox>("chkLaunchEditor", box), 'e');
}

void TransferDialog::buildDestinations() {
    QGroupBox& box = frame(model_.destinationFrame, "destinationFrame");
    binder_.bind(model_.chkDestination[ToArchive], make<QCheckBox>("chkDestination0", box), 'T');
    binder_.bind(model_.chkSaveCdds, make<QCheckBox>("chkSaveCdds", box), 'v');
    binder_.bind(model_.txtCDDSBackupFolder, make<QLineEdit>("txtCDDSBackupFolder", box));
    browse(model_.cmdGetCDDSBackupFolder, "cmdGetCDDSBackupFolder", box);
    binder_.bind(model_.chkDestination[ToBazarTemp], make<QCheckBox>("chkDestination1", box), 'Z');
    binder_.bind(model_.txtbazarTempFolder, make<QLineEdit>("txtbazarTempFolder", box));
    browse(model_.cmdGetBazarTempFolder, "cmdGetBazarTempFolder", box);
}

void TransferDialog::browse(CommandButton& model, const QString& name, QWidget& parent) {
    QPushButton& view = make<QPushButton>(name, parent);
    view.setToolTip(toQString(model.accessibleName()));
    binder_.bind(model, view);
}

void TransferDialog::buildBelow() {
    QLabel& warning = make<QLabel>("lblWarningTgaInsert", *this);
    warning.setWordWrap(true);
    warning.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    binder_.bind(model_.lblWarningTgaInsert, warning);
    binder_.bind(model_.ExtractSummary, make<QPlainTextEdit>("ExtractSummary", *this));
    action_ = &make<QPushButton>("cmdExtractInsert", *this);
    action_->setDefault(true);
    // Not the letters of the main window's commands: those may still come from a quick hand.
    binder_.bind(model_.cmdExtractInsert, *action_, 's');
    binder_.attach(model_.cmdExtractInsert, *action_, [this] {
        if (model_.cmdExtractInsert.caption() == "Extract") action_->setText("Ex&tract");
    });
    QPushButton& quit = make<QPushButton>("cmdQuit", *this);
    quit.setAutoDefault(false);
    binder_.bind(model_.cmdQuit, quit, 'Q');
    binder_.bind(model_.chkRemember, make<QCheckBox>("chkRemember", *this), 'R');
    QPushButton& check = make<QPushButton>("cmdCheck", *this);
    check.setAutoDefault(false);
    check.setToolTip("Look at what would be inserted; nothing is written");
    binder_.bind(model_.cmdCheck, check, 'h');
}

void TransferDialog::showEvent(QShowEvent* event) {
    ModelDialog::showEvent(event);
    action_->setFocus();
}

} // namespace pelrath::desktop
