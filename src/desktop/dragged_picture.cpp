#include "desktop/dragged_picture.hpp"

#include <QBuffer>
#include <QFile>
#include <QUrl>

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

QByteArray DraggedPicture::fileAddress() const {
    const std::string& folder = folder_.path();
    if (folder.empty()) return {};
    QFile file{QFile::decodeName(folder.c_str()) + '/' + name_ + ".png"};
    if (!file.open(QIODevice::WriteOnly) || file.write(png()) != png().size()) return {};
    return QUrl::fromLocalFile(file.fileName()).toEncoded() + "\r\n";
}

} // namespace pelrath::desktop
