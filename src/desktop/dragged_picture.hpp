#pragma once

#include "platform/posix/private_folder.hpp"

#include <QImage>
#include <QMimeData>

namespace pelrath::desktop {

/// A picture on its way to another program, which takes it as a PNG file or as what would be in one. Neither
/// is made before somebody asks for it.
class DraggedPicture : public QMimeData {
public:
    /// `name` is that of the file, without its extension. The folder keeps the file for as long as it lives.
    DraggedPicture(QImage image, QString name, PrivateFolder& folder);

    [[nodiscard]] QStringList formats() const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override;

private:
    [[nodiscard]] const QByteArray& png() const;
    [[nodiscard]] QByteArray fileAddress() const;

    QImage image_;
    QString name_;
    PrivateFolder& folder_;
    mutable QByteArray png_;
    mutable QByteArray address_; ///< of the file, once it is there
};

} // namespace pelrath::desktop
