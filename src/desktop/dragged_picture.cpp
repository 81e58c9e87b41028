#include "desktop/dragged_picture.hpp"

#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"

#include <QBuffer>
#include <QFile>
#include <QUrl>

#include <array>
#include <span>
#include <utility>

namespace pelrath::desktop {

namespace {

const QString fileList{"text/uri-list"};
const QString picture{"image/png"};
constexpr int quickly = 80; // of a PNG's "quality": the less it is packed, the sooner it is there

} // namespace

DraggedPicture::DraggedPicture(QImage image, QString name, PrivateFolder& folder)
    : image_(std::move(image)), name_(std::move(name)), folder_(folder) {}

QStringList DraggedPicture::formats() const { return {fileList, picture}; }

QVariant DraggedPicture::retrieveData(const QString& format, QMetaType /*type*/) const {
    if (format == picture) return png();
    if (format == fileList) return fileAddress();
    return {};
}

const QByteArray& DraggedPicture::png() const {
    if (png_.isEmpty()) {
        QBuffer buffer{&png_};
        image_.save(&buffer, "PNG", quickly);
    }
    return png_;
}

// Whoever asks twice, or still reads what was dragged before under the same name, finds no file that is being
// written.
QByteArray DraggedPicture::fileAddress() const try {
    const std::string& folder = folder_.path();
    if (folder.empty() || !address_.isEmpty()) return address_;
    const std::string path = joinPath(folder, name_.toStdString() + ".png");
    const std::span whole{png().constData(), static_cast<std::size_t>(png().size())};
    const std::array pieces{std::as_bytes(whole)};
    replaceFile(path, pieces, Durability::Scratch);
    address_ = QUrl::fromLocalFile(QFile::decodeName(path.c_str())).toEncoded() + "\r\n";
    return address_;
} catch (const RuntimeError&) {
    return {};
}

} // namespace pelrath::desktop
