#include "transfer/file_kind_rules.hpp"

#include "archive/image_file_kind.hpp"

namespace pelrath {

FileKindRules::FileKindRules(const Controls& controls, const Session& session, TransferState& state,
                             ResolutionList& resolutions)
    : c_(controls), session_(session), state_(state), resolutions_(resolutions) {
    connections_.push_back(c_.optOutFileType[NativeFileType].click.connect([this] { chooseNativeKind(); }));
    connections_.push_back(c_.optOutFileType[DdsFileType].click.connect([this] { chooseDds(); }));
    for (const MipmapOperation operation : {Single, Embedded, External, Create}) {
        connections_.push_back(
            c_.optMipmaps[operation].click.connect([this, operation] { optMipmaps_Click(operation); }));
    }
}

void FileKindRules::chooseNativeKind() {
    for (const MipmapOperation operation : {Embedded, External, Create}) {
        c_.optMipmaps[operation].setEnabled(false);
        c_.optMipmaps[operation].deselect();
    }
    if (const auto native = nativeImageKind(session_.chosenTexture())) state_.imageFileKind = native->kind;
    if (inserting()) {
        c_.optMipmaps[Single].setEnabled(true);
        c_.optMipmaps[Create].setEnabled(true);
        c_.optMipmaps[Create].select();
        enableFilter(true);
        enableBazarTemp(false);
        c_.lblWarningTgaInsert.setVisible(state_.imageFileKind == ImageFileKind::Tga);
    } else {
        c_.optMipmaps[Single].setEnabled(false);
        c_.optMipmaps[Single].deselect();
        resolutions_.selectAll();
        c_.lblWarningTgaInsert.setVisible(false);
    }
}

void FileKindRules::chooseDds() {
    for (OptionButton& operation : c_.optMipmaps) {
        operation.setEnabled(true);
    }
    state_.imageFileKind = ImageFileKind::Dds;
    c_.lblWarningTgaInsert.setVisible(false);
    if (inserting()) {
        c_.optMipmaps[Embedded].select();
        enableBazarTemp(true);
    } else {
        c_.optMipmaps[resolutions_.countSelectedResolutions() <= 1 ? Single : Embedded].select();
    }
}

void FileKindRules::optMipmaps_Click(MipmapOperation operation) {
    state_.mipmapOperation = operation;
    enableFilter(operation == Create);
    resolutions_.selectAll();
}

void FileKindRules::enableFilter(bool enabled) {
    c_.lstScaleFilter.setEnabled(enabled);
    c_.lblFilter.setTextColor(enabled ? TextColor::Normal : TextColor::Greyed);
}

void FileKindRules::enableBazarTemp(bool enabled) {
    c_.bazarTemp.setEnabled(enabled);
    c_.txtbazarTempFolder.setEnabled(enabled);
}

} // namespace pelrath
