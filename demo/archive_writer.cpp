#include "archive_writer.hpp"

#include <fstream>
#include <stdexcept>
#include <string_view>

namespace demo {

namespace {

constexpr std::size_t header0C = 24;
constexpr std::size_t entry0C = 68;
constexpr std::size_t headerCdds = 32;
constexpr std::size_t entryCdds = 64;
constexpr std::size_t descriptorSize = 40;
constexpr std::size_t mipmapEntrySize = 16;
constexpr std::size_t nameSize = 32;

constexpr std::size_t roundedUp(std::size_t value, std::size_t step) {
    return (value + step - 1) / step * step;
}

class Bytes {
public:
    std::size_t position() const { return data_.size(); }
    const std::vector<char>& data() const { return data_; }

    void number(std::int64_t value) {
        const auto bits = static_cast<std::uint32_t>(value);
        for (unsigned shift = 0; shift < 32; shift += 8) {
            data_.push_back(static_cast<char>(bits >> shift & 255U));
        }
    }
    void offset(std::size_t from, std::size_t to) {
        number(static_cast<std::int64_t>(to) - static_cast<std::int64_t>(from));
    }
    void text(std::string_view value, std::size_t width) {
        if (value.size() > width) throw std::runtime_error("name too long: " + std::string(value));
        data_.insert(data_.end(), value.begin(), value.end());
        data_.resize(data_.size() + width - value.size());
    }
    void bytes(const std::vector<std::uint8_t>& value) {
        data_.insert(data_.end(), value.begin(), value.end());
    }
    void padTo(std::size_t position) { data_.resize(position); }

private:
    std::vector<char> data_;
};

std::size_t levelCount(const std::vector<Texture>& textures) {
    std::size_t count = 0;
    for (const Texture& texture : textures)
        count += texture.levels.size();
    return count;
}

// Fields no reader interprets; small numbers, some of them negative, so that a listing shows that they
// differ.
std::int64_t filler(std::size_t item, int field) {
    const auto mixed = (item * 37U + static_cast<std::size_t>(field) * 101U) % 64U;
    return static_cast<std::int64_t>(mixed) - 16;
}

void fillers(Bytes& out, std::size_t item, int first, int last) {
    for (int field = first; field <= last; ++field)
        out.number(filler(item, field));
}

// The descriptors make the tables of the second layout the larger ones; data begins behind those in both.
std::size_t dataStart(const std::vector<Texture>& textures) {
    const std::size_t tables =
        headerCdds + textures.size() * (entryCdds + descriptorSize) + levelCount(textures) * mipmapEntrySize;
    static_assert(header0C + entry0C < headerCdds + entryCdds + descriptorSize);
    return roundedUp(tables, 4096);
}

constexpr std::size_t dataAlignment = 16;

void writeMipmapTable(Bytes& out, const Texture& texture, std::size_t& dataPosition) {
    for (const Level& level : texture.levels) {
        out.offset(out.position(), dataPosition);
        out.number(static_cast<std::int64_t>(level.data.size()));
        out.number(level.height);
        out.number(level.width);
        dataPosition = roundedUp(dataPosition + level.data.size(), dataAlignment);
    }
}

void writeData(Bytes& out, const std::vector<Texture>& textures) {
    out.padTo(dataStart(textures));
    for (const Texture& texture : textures) {
        for (const Level& level : texture.levels) {
            out.bytes(level.data);
            out.padTo(roundedUp(out.position(), dataAlignment));
        }
    }
}

void writeTables0C(Bytes& out, const std::vector<Texture>& textures) {
    out.number(12);
    out.number(static_cast<std::int64_t>(textures.size()));
    fillers(out, 0, 1, 4);
    std::size_t table = header0C + entry0C * textures.size();
    for (std::size_t i = 0; i < textures.size(); ++i) {
        const Texture& texture = textures[i];
        out.text(texture.name, nameSize);
        out.number(texture.height);
        out.number(texture.width);
        out.text(texture.fourCC, 4);
        fillers(out, i, 1, 4);
        out.number(static_cast<std::int64_t>(texture.levels.size()));
        out.offset(out.position(), table);
        table += texture.levels.size() * mipmapEntrySize;
    }
    std::size_t dataPosition = dataStart(textures);
    for (const Texture& texture : textures)
        writeMipmapTable(out, texture, dataPosition);
}

void writeTablesCdds(Bytes& out, const std::vector<Texture>& textures) {
    out.text("cdds", 4);
    out.number(filler(0, 1));
    out.number(static_cast<std::int64_t>(textures.size()));
    fillers(out, 0, 3, 7);
    std::size_t descriptor = headerCdds + entryCdds * textures.size();
    for (std::size_t i = 0; i < textures.size(); ++i) {
        out.text(textures[i].name, nameSize);
        out.offset(out.position(), descriptor);
        fillers(out, i, 2, 8);
        descriptor += descriptorSize + textures[i].levels.size() * mipmapEntrySize;
    }
    std::size_t dataPosition = dataStart(textures);
    for (std::size_t i = 0; i < textures.size(); ++i) {
        const Texture& texture = textures[i];
        out.number(texture.height);
        out.number(texture.width);
        out.text(texture.fourCC, 4);
        out.number(filler(i, 4));
        out.number(static_cast<std::int64_t>(texture.levels.size()));
        fillers(out, i, 6, 10);
        writeMipmapTable(out, texture, dataPosition);
    }
}

void save(const std::filesystem::path& path, const std::vector<char>& data) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(data.data(), static_cast<std::streamsize>(data.size()));
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path.string());
}

} // namespace

std::uint64_t writeArchive(const std::filesystem::path& path, Layout layout,
                           const std::vector<Texture>& textures) {
    Bytes out;
    if (layout == Layout::Type0C) {
        writeTables0C(out, textures);
    } else {
        writeTablesCdds(out, textures);
    }
    writeData(out, textures);

    std::filesystem::path beside = path;
    beside += ".part";
    try {
        save(beside, out.data());
        std::filesystem::rename(beside, path);
    } catch (...) {
        std::error_code ignored;
        std::filesystem::remove(beside, ignored);
        throw;
    }
    return out.data().size();
}

} // namespace demo
