#include "mainwindow/viewer/dds_probe.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"

#include <algorithm>
#include <cstring>
#include <span>

namespace pelrath {

namespace {

constexpr const char* title = "getImageInfo";

std::uint32_t valueAt(const DdsHead& head, std::size_t offset) {
    std::uint32_t value = 0;
    std::memcpy(&value, &head.at(offset), sizeof value);
    return value;
}

std::string signedText(int number) { return (number < 0 ? "" : " ") + std::to_string(number); }

} // namespace

DdsHead readDdsHeader(const std::string& path) {
    const InputFile file{path};
    DdsHead head{};
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(file.size(), head.size()));
    file.readAt(0, std::span{head}.first(count));
    return head;
}

bool getImageInfo(const std::string& path, ImageInfo& info, MessageBoxes& boxes) {
    info = {};
    if (!fileExists(path)) {
        boxes.critical("Image File " + path + " not found.", title);
        return false;
    }
    try {
        const DdsHead head = readDdsHeader(path);
        if (std::memcmp(head.data(), "DDS ", 4) != 0) {
            boxes.critical("Image File " + path + " is not in DDS format.", title);
            return false;
        }
        info = {valueAt(head, 16), valueAt(head, 12), valueAt(head, 24), valueAt(head, 28)};
        return true;
    } catch (const RuntimeError& error) {
        boxes.critical("Error: " + signedText(error.number()) + " " + error.description(), title);
        return false;
    }
}

} // namespace pelrath
