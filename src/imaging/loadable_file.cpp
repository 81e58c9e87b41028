#include "imaging/loadable_file.hpp"

#include <utility>

namespace pelrath {

LoadableFile makeLoadable(FileKind kind, std::vector<std::byte> file) {
    switch (kind) {
    case FileKind::Bmp:
        return makeLoadableBitmap(std::move(file));
    case FileKind::Tga:
        return makeLoadableTarga(std::move(file));
    case FileKind::Dds:
        return makeLoadableDds(std::move(file));
    case FileKind::Jpg:
        return makeLoadableJpeg(std::move(file));
    }
    refuse(Refusal::KindNotSupported);
}

} // namespace pelrath
