#include "mainwindow/viewer/image_info.hpp"

#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <array>
#include <span>

namespace pelrath {

namespace {

constexpr const char* title = "getImageInfo";

std::string signedText(int number) { return (number < 0 ? "" : " ") + std::to_string(number); }

} // namespace

DdsHeader readDdsHeader(const std::string& path) {
    const InputFile file{path};
    std::array<std::byte, sizeof(DdsHeader)> start{};
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(file.size(), start.size()));
    file.readAt(0, std::span{start}.first(count));
    return ddsHeaderOf(start);
}

bool getImageInfo(const std::string& path, ImageInfo& info, MessageBoxes& boxes) {
    info = {};
    if (!fileExists(path)) {
        boxes.critical("Image File " + path + " not found.", title);
        return false;
    }
    try {
        const DdsHeader header = readDdsHeader(path);
        if (header.magic != ddsMagic) {
            boxes.critical("Image File " + path + " is not in DDS format.", title);
            return false;
        }
        info = {header.width, header.height, header.depth, header.mipmapCount};
        return true;
    } catch (const RuntimeError& error) {
        boxes.critical("Error: " + signedText(error.number()) + " " + error.description(), title);
        return false;
    }
}

} // namespace pelrath
