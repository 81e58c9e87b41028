#include "platform/dds_header.hpp"

#include <algorithm>
#include <cstring>

namespace pelrath {

DdsHeader ddsLevelHeader(std::uint32_t width, std::uint32_t height, std::uint32_t levelBytes,
                         std::uint32_t fourCC) {
    DdsHeader header{};
    header.magic = ddsMagic;
    header.size = 124;
    header.flags = 0x00081007; // capabilities, height, width, pixel format and linear size are given
    header.height = height;
    header.width = width;
    header.linearSize = levelBytes;
    header.formatSize = 32;
    header.formatFlags = DdsHeader::FourCCGiven;
    header.fourCC = fourCC;
    header.capabilities[0] = DdsHeader::Texture;
    return header;
}

DdsHeader ddsHeaderOf(Bytes file) {
    DdsHeader header{};
    std::memcpy(&header, file.data(), std::min(file.size(), sizeof header));
    return header;
}

} // namespace pelrath
