#include "mainwindow/viewer/dds_file.hpp"

#include "mainwindow/viewer/dds_probe.hpp"
#include "platform/files.hpp"

#include <cstring>
#include <string_view>

namespace pelrath {

namespace {

PixelFormat formatOf(const DdsHead& head) {
    std::array<char, 4> fourCC{};
    std::memcpy(fourCC.data(), &head[84], fourCC.size());
    const std::string_view type{fourCC.data(), fourCC.size()};
    if (type == "DXT1") return PixelFormat::Dxt1;
    if (type == "DXT5") return PixelFormat::Dxt5;
    throw deviceError(DeviceFailure::InvalidData, "The file's pixel format is neither DXT1 nor DXT5.");
}

std::uint32_t sideAt(const DdsHead& head, std::size_t offset, std::uint32_t largestSide) {
    std::uint32_t side = 0;
    std::memcpy(&side, &head.at(offset), sizeof side);
    if (side == 0 || side > largestSide) {
        throw deviceError(DeviceFailure::NotAvailable, "A side of " + std::to_string(side) +
                                                           " pixels; possible are 1 to " +
                                                           std::to_string(largestSide) + ".");
    }
    return side;
}

} // namespace

DdsPicture readDdsPicture(const std::string& path, std::uint32_t largestSide) {
    const DdsHead head = readDdsHeader(path);
    DdsPicture picture;
    picture.format = formatOf(head);
    picture.width = sideAt(head, 16, largestSide);
    picture.height = sideAt(head, 12, largestSide);
    const std::uint64_t blocks = ((picture.width + 3ULL) / 4) * ((picture.height + 3ULL) / 4);
    const std::uint64_t needed = blocks * (picture.format == PixelFormat::Dxt1 ? 8 : 16);
    const InputFile file{path};
    if (file.size() < head.size() || file.size() - head.size() < needed) {
        throw deviceError(DeviceFailure::InvalidData, "The file is too short for " +
                                                          std::to_string(picture.width) + " x " +
                                                          std::to_string(picture.height) + " pixels.");
    }
    picture.blocks.resize(static_cast<std::size_t>(needed));
    file.readAt(head.size(), picture.blocks);
    return picture;
}

} // namespace pelrath
