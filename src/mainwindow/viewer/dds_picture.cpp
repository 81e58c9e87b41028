#include "mainwindow/viewer/dds_picture.hpp"

#include "mainwindow/viewer/image_info.hpp"
#include "platform/posix/files.hpp"

#include <algorithm>
#include <new>

namespace pelrath {

namespace {

PixelFormat formatOf(const DdsHeader& header) {
    if (header.fourCC == dxt1Code) return PixelFormat::Dxt1;
    if (header.fourCC == dxt5Code) return PixelFormat::Dxt5;
    throw deviceError(DeviceFailure::InvalidData,
                      "Its pixels are neither DXT1 nor DXT5, and no others can be shown.");
}

std::string sides(std::int32_t width, std::int32_t height) {
    return std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

void requirePossible(std::int32_t width, std::int32_t height, std::uint32_t largestSide) {
    const auto largest = static_cast<std::int32_t>(largestSide);
    if (width < 1 || height < 1) {
        throw deviceError(DeviceFailure::InvalidData,
                          "A texture cannot have " + sides(width, height) +
                              ": the archive is damaged there, and another copy of it may help.");
    }
    if (width > largest || height > largest) {
        throw deviceError(DeviceFailure::NotAvailable,
                          "It has " + sides(width, height) + ", and this computer shows no side above " +
                              std::to_string(largest) + "; extract it to see it elsewhere.");
    }
}

/// What follows the head, but no more than `most` bytes.
std::vector<std::byte> dataOf(const std::string& path, std::uint64_t most) {
    const InputFile file{path};
    const std::uint64_t head = sizeof(DdsHeader);
    std::vector<std::byte> data(
        static_cast<std::size_t>(std::min(most, file.size() - std::min(head, file.size()))));
    file.readAt(head, data);
    return data;
}

template <typename Work>
auto read(Work work) try {
    return work();
} catch (const RuntimeError& error) {
    throw deviceError(DeviceFailure::InvalidData,
                      std::string{errorDescription(static_cast<ErrorNumber>(error.number()))} +
                          ". Choose the texture again.");
} catch (const std::bad_alloc&) {
    throw deviceError(DeviceFailure::OutOfMemory, "There is too little memory to show it.");
}

} // namespace

DdsPicture readDdsPicture(const std::string& path, std::uint32_t largestSide) {
    const DdsHeader header = read([&] { return readDdsHeader(path); });
    DdsPicture picture;
    picture.format = formatOf(header);
    // Archives count sides in signed numbers, and hand them on as they are.
    const auto width = static_cast<std::int32_t>(header.width);
    const auto height = static_cast<std::int32_t>(header.height);
    requirePossible(width, height, largestSide);
    picture.width = static_cast<std::uint32_t>(width);
    picture.height = static_cast<std::uint32_t>(height);
    const std::uint64_t blocks = ((picture.width + 3ULL) / 4) * ((picture.height + 3ULL) / 4);
    const std::uint64_t needed = blocks * (picture.format == PixelFormat::Dxt1 ? 8 : 16);
    picture.blocks = read([&] { return dataOf(path, needed); });
    if (picture.blocks.size() < needed) {
        throw deviceError(DeviceFailure::InvalidData,
                          "It holds too little data for " + sides(width, height) +
                              ": the archive is damaged there, and another copy of it may help.");
    }
    return picture;
}

} // namespace pelrath
