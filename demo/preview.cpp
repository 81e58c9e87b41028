#include "preview.hpp"

#include <cctype>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace demo {

namespace {

std::string fileName(int index, const std::string& name) {
    std::ostringstream result;
    result << std::setw(3) << std::setfill('0') << index << '-';
    for (const char c : name) {
        const bool plain = std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.' || c == '-';
        result << (plain ? c : '_');
    }
    return result.str();
}

template <class AppendPixel>
void writeNetpbm(const std::filesystem::path& path, const char* magic, const Canvas& picture,
                 AppendPixel appendPixel) {
    std::ostringstream header;
    header << magic << '\n' << picture.width() << ' ' << picture.height() << "\n255\n";
    std::string data = header.str();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            appendPixel(data, x, y);
    }
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(data.data(), static_cast<std::streamsize>(data.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path.string());
}

bool isOpaque(const Canvas& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.at(x, y).a < 1.0F) return false;
        }
    }
    return true;
}

} // namespace

void writePreview(const std::filesystem::path& folder, int index, const std::string& name,
                  const Canvas& picture) {
    const std::filesystem::path base = folder / fileName(index, name);
    writeNetpbm(base.string() + ".ppm", "P6", picture, [&](std::string& data, int x, int y) {
        const Color ground = grey((x / 8 + y / 8) % 2 == 0 ? 0.42F : 0.52F);
        const Color c = picture.at(x, y);
        const Color seen = mix(ground, c, clamp01(c.a));
        for (const float channel : {seen.r, seen.g, seen.b})
            data += static_cast<char>(toByte(channel));
    });
    if (isOpaque(picture)) return;
    writeNetpbm(base.string() + "-alpha.pgm", "P5", picture, [&](std::string& data, int x, int y) {
        data += static_cast<char>(toByte(picture.at(x, y).a));
    });
}

} // namespace demo
