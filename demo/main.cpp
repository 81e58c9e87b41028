#include "archive_builder.hpp"
#include "painters.hpp"

#include <QDir>
#include <QGuiApplication>
#include <QSaveFile>

#include <squish.h>

#include <atomic>
#include <iostream>
#include <thread>

namespace pelrath::demo {

namespace {

QImage picture(const Texture& texture) {
    QImage image{texture.width, texture.height, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    Canvas canvas{image};
    texture.paint(canvas);
    canvas.end();
    // The ground is below in colour only, so that no edge has the fringe of another colour.
    QImage whole{image.size(), QImage::Format_ARGB32};
    whole.fill(QRgb{texture.ground | 0xFF000000});
    QPainter{&whole}.drawImage(0, 0, image);
    for (int y = 0; y < image.height(); ++y) {
        auto* to = reinterpret_cast<QRgb*>(whole.scanLine(y));
        const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            to[x] = (to[x] & 0xFFFFFF) | (from[x] & 0xFF000000);
        }
    }
    return whole;
}

/// Each texel is the mean of up to four, colour and alpha alike.
QImage half(const QImage& image) {
    QImage smaller{std::max(1, image.width() / 2), std::max(1, image.height() / 2), QImage::Format_ARGB32};
    for (int y = 0; y < smaller.height(); ++y) {
        for (int x = 0; x < smaller.width(); ++x) {
            int sums[4] = {2, 2, 2, 2};
            for (int i = 0; i < 4; ++i) {
                const QRgb texel = image.pixel(std::min(2 * x + i % 2, image.width() - 1),
                                               std::min(2 * y + i / 2, image.height() - 1));
                sums[0] += qRed(texel), sums[1] += qGreen(texel), sums[2] += qBlue(texel),
                    sums[3] += qAlpha(texel);
            }
            smaller.setPixel(x, y, qRgba(sums[0] / 4, sums[1] / 4, sums[2] / 4, sums[3] / 4));
        }
    }
    return smaller;
}

std::string encoded(const QImage& image, const QString& type) {
    const int width = image.width(), height = image.height();
    if (type == "ARGB")
        return {reinterpret_cast<const char*>(image.constBits()),
                static_cast<std::size_t>(image.sizeInBytes())};
    const QImage texels = image.convertToFormat(QImage::Format_RGBA8888);
    const int flags = (type == "DXT1" ? squish::kDxt1 : squish::kDxt5) |
                      (width * height > 256 * 256 ? squish::kColourRangeFit : squish::kColourClusterFit);
    std::string blocks(static_cast<std::size_t>(squish::GetStorageRequirements(width, height, flags)), '\0');
    squish::CompressImage(texels.constBits(), width, height, blocks.data(), flags);
    return blocks;
}

TexturePlan plan(const Texture& texture, QImage image) {
    TexturePlan made{texture.name, texture.type, {}};
    for (int left = texture.levels;; image = half(image)) {
        made.levels.push_back(
            {image.width(), image.height(), encoded(image, QString{texture.type}.toUpper())});
        if (--left == 0 || image.width() * image.height() == 1) return made;
    }
}

bool write(const QString& path, const std::string& bytes) {
    QSaveFile file{path};
    const auto size = static_cast<qint64>(bytes.size());
    const bool written =
        file.open(QIODevice::WriteOnly) && file.write(bytes.data(), size) == size && file.commit();
    if (!written)
        std::cerr << "Cannot write " << path.toStdString() << ": " << file.errorString().toStdString()
                  << '\n';
    return written;
}

} // namespace

/// Writes an archive of each layout into the folder, and the largest levels as pictures into the other one,
/// if any.
bool makeArchives(const QString& folder, const QString& pictures) {
    QDir{}.mkpath(folder);
    if (!pictures.isEmpty()) QDir{}.mkpath(pictures);
    const std::vector<Texture>& textures = catalogue();
    ArchiveBuilder builder{CddsType::TypeCdds, std::vector<TexturePlan>(textures.size())};
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
        for (std::size_t i = next++; i < textures.size(); i = next++) {
            const QImage image = picture(textures[i]);
            const QString file = QString{"%1-%2.png"}.arg(i, 2, 10, QChar{'0'}).arg(textures[i].name);
            if (!pictures.isEmpty()) image.save(QDir{pictures}.filePath(file));
            builder.textures[i] = plan(textures[i], image);
        }
    };
    std::vector<std::jthread> others(std::thread::hardware_concurrency());
    std::generate(others.begin(), others.end(), [&work] { return std::jthread{work}; });
    others.clear();
    ArchiveBuilder other{CddsType::Type0C, builder.textures};
    return write(folder + "/demo-cdds.cdds", builder.build()) &&
           write(folder + "/demo-0c.cdds", other.build());
}

} // namespace pelrath::demo

int main(int count, char* arguments[]) {
    if (count != 2 && count != 3) {
        std::cerr << "pelrath-demo-archives FOLDER [FOLDER-FOR-PICTURES]\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication qt{count, arguments};
    return pelrath::demo::makeArchives(arguments[1], arguments[2]) ? 0 : 1;
}
