#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// Writes small valid files of every kind and form as seeds: imaging-seeds FOLDER makes FOLDER/bmp, /tga,
/// /dds and /jpg.
namespace {

std::string little(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text += static_cast<char>(i < 4 ? value >> (8 * i) : 0);
    }
    return text;
}

/// Bytes that differ, and that are small enough for an index.
std::string filler(std::size_t count, std::uint32_t below) {
    std::string text;
    std::uint32_t state = 1;
    for (std::size_t i = 0; i < count; ++i) {
        state = state * 1103515245 + 12345;
        text += static_cast<char>((state >> 16) % below);
    }
    return text;
}

class Seeds {
public:
    explicit Seeds(std::filesystem::path folder) : folder_(std::move(folder)) {}

    void write(const std::string& kind, const std::string& bytes) {
        std::filesystem::create_directories(folder_ / kind);
        std::ofstream{folder_ / kind / ("seed" + std::to_string(count_++)), std::ios::binary} << bytes;
    }

private:
    std::filesystem::path folder_;
    int count_ = 0;
};

std::string bitmap(std::uint32_t headerBytes, std::uint32_t bits, std::uint32_t compression, bool topFirst) {
    constexpr std::uint32_t width = 9;
    constexpr std::uint32_t height = 5;
    const std::uint32_t colours = bits <= 8 ? 1U << bits : 0;
    std::string header = little(headerBytes, 4);
    if (headerBytes == 12) {
        header += little(width, 2) + little(height, 2) + little(1, 2) + little(bits, 2);
    } else {
        header +=
            little(width, 4) + little(topFirst ? 0U - height : height, 4) + little(1, 2) + little(bits, 2);
        header += little(compression, 4) + little(0, 12) + little(colours, 4) + little(0, 4);
    }
    if (compression == 3) {
        header += bits == 16 ? little(0xF800, 4) + little(0x07E0, 4) + little(0x001F, 4)
                             : little(0xFF0000, 4) + little(0xFF00, 4) + little(0xFF, 4);
        if (headerBytes >= 56) header += little(bits == 16 ? 0 : 0xFF000000, 4);
    }
    if (header.size() < headerBytes) header.resize(headerBytes);
    header += filler(colours * (headerBytes == 12 ? 3 : 4), 256);
    std::string data = filler((width * bits + 31) / 32 * 4 * height, bits == 8 ? 256 : 255);
    if (compression == 1 || compression == 2) {
        data.clear();
        for (std::uint32_t y = 0; y < height; ++y) {
            data += std::string{"\x05\x01\x00\x04\x01\x02\x03\x01\x00\x00", compression == 1 ? 10U : 4U};
            if (compression == 2) data += std::string{"\x12\x31\x00\x00", 4};
        }
        data += std::string{"\x00\x01", 2};
    }
    const auto dataAt = static_cast<std::uint32_t>(header.size() + 14);
    return "BM" + little(dataAt + static_cast<std::uint32_t>(data.size()), 4) + little(0, 4) +
           little(dataAt, 4) + header + data;
}

std::string targa(std::uint32_t type, std::uint32_t bits, std::uint32_t descriptor,
                  std::uint32_t paletteBits) {
    constexpr std::uint32_t width = 9;
    constexpr std::uint32_t height = 5;
    constexpr std::uint32_t entries = 256;
    const std::size_t bytes = (bits + 7) / 8;
    std::string file = little(3, 1) + little(paletteBits == 0 ? 0 : 1, 1) + little(type, 1) + little(0, 2) +
                       little(paletteBits == 0 ? 0 : entries, 2) + little(paletteBits, 1) + little(0, 4) +
                       little(width, 2) + little(height, 2) + little(bits, 1) + little(descriptor, 1) + "id.";
    if (paletteBits != 0) file += filler(entries * ((paletteBits + 7) / 8), 256);
    if (type < 8) return file + filler(width * height * bytes, 256);
    for (std::uint32_t i = 0; i < height; ++i) {
        file += little(0x84, 1) + filler(bytes, 256) + little(0x03, 1) + filler(4 * bytes, 256);
    }
    return file + little(0, 8) + std::string{"TRUEVISION-XFILE.\0", 18};
}

/// A TGA file without a footer, with an extension area that says what the alpha is.
std::string withAttributesType(const std::string& file, std::uint32_t type) {
    return file + little(495, 2) + std::string(492, '\0') + little(type, 1) +
           little(static_cast<std::uint32_t>(file.size()), 4) + little(0, 4) +
           std::string{"TRUEVISION-XFILE.\0", 18};
}

std::string dds(std::string_view fourCC, std::uint32_t width, std::uint32_t height, std::uint32_t levels) {
    std::string data;
    for (std::uint32_t level = 0; level < levels; ++level) {
        const std::uint32_t across = ((width >> level) + 3) / 4;
        const std::uint32_t down = ((height >> level) + 3) / 4;
        data +=
            filler((across == 0 ? 1 : across) * (down == 0 ? 1 : down) * (fourCC == "DXT1" ? 8 : 16), 256);
    }
    const bool chain = levels > 1;
    return "DDS " + little(124, 4) + little(chain ? 0x000A1007 : 0x00081007, 4) + little(height, 4) +
           little(width, 4) + little(0, 8) + little(chain ? levels : 0, 4) + std::string(44, '\0') +
           little(32, 4) + little(4, 4) + std::string{fourCC} + std::string(20, '\0') +
           little(chain ? 0x00401008 : 0x1000, 4) + std::string(16, '\0') + data;
}

/// A grey picture of 8 x 8 with the shortest tables that decode.
std::string jpeg() {
    std::string file{"\xFF\xD8\xFF\xDB\x00\x43\x00", 7};
    file += std::string(64, '\x10');
    file += std::string{"\xFF\xC0\x00\x0B\x08\x00\x08\x00\x08\x01\x01\x11\x00", 13};
    for (const char table : {'\x00', '\x10'}) {
        file += std::string{"\xFF\xC4\x00\x14", 4} + table + '\x01' + std::string(15, '\0') + '\0';
    }
    return file + std::string{"\xFF\xDA\x00\x08\x01\x01\x00\x00\x3F\x00\x3F\xFF\xD9", 13};
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: imaging-seeds FOLDER\n", stderr);
        return 1;
    }
    Seeds seeds{argv[1]};
    for (const std::uint32_t header : {12U, 40U, 52U, 56U, 64U, 108U, 124U}) {
        for (const std::uint32_t bits : {1U, 4U, 8U, 16U, 24U, 32U}) {
            if (header == 12 && (bits == 16 || bits == 32)) continue;
            seeds.write("bmp", bitmap(header, bits, 0, bits == 24));
            const bool masks = (bits == 16 || bits == 32) && header != 64;
            if (masks) seeds.write("bmp", bitmap(header, bits, 3, bits == 32));
            if (header != 12 && bits == 8) seeds.write("bmp", bitmap(header, bits, 1, false));
            if (header != 12 && bits == 4) seeds.write("bmp", bitmap(header, bits, 2, false));
        }
    }
    for (const std::uint32_t runs : {0U, 8U}) {
        for (const std::uint32_t origin : {0x00U, 0x10U, 0x20U, 0x30U}) {
            for (const std::uint32_t bits : {15U, 16U, 24U, 32U}) {
                seeds.write("tga", targa(2 + runs, bits, origin + (bits == 16 ? 1 : 0), 0));
                seeds.write("tga", targa(1 + runs, 8, origin, bits));
            }
            seeds.write("tga", targa(3 + runs, 8, origin, 0));
            seeds.write("tga", targa(3 + runs, 16, origin, 0));
        }
    }
    for (const std::uint32_t attributes : {0U, 2U, 3U, 4U}) {
        seeds.write("tga", withAttributesType(targa(2, 32, 0x28, 0), attributes));
        seeds.write("tga", withAttributesType(targa(1, 8, 0x20, 32), attributes));
    }
    for (const char* fourCC : {"DXT1", "DXT5"}) {
        for (const std::uint32_t side : {1U, 3U, 4U, 9U, 16U}) {
            seeds.write("dds", dds(fourCC, side, 7, 1));
            seeds.write("dds", dds(fourCC, 8, side, 4));
        }
    }
    seeds.write("jpg", jpeg());
    return 0;
}
