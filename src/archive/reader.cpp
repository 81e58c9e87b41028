#include "archive/reader.hpp"

#include "archive/table_source.hpp"
#include "platform/posix/files.hpp"
#include "platform/text.hpp"

#include <limits>
#include <string_view>

namespace pelrath {

namespace {

using records::decode;

constexpr std::int64_t largestPosition = std::numeric_limits<std::int32_t>::max();

/// Where a reader stands. Costs nothing until a message needs its words.
struct Place {
    std::size_t texture;
    const records::Name& name;
    std::string_view thing;
    std::int64_t level = -1; ///< appended to the thing when it is not negative

    [[nodiscard]] std::string owner() const {
        return "Texture " + std::to_string(texture + 1) + " (\"" + visibleText(fieldText(name)) + "\")";
    }
    [[nodiscard]] std::string what() const {
        return std::string{thing} + (level < 0 ? "" : " " + std::to_string(level));
    }
};

std::string at(std::int64_t position) { return " (at " + std::to_string(position) + ")"; }

/// Reads records at checked positions; what does not hold leaves as DamagedArchive.
class CheckedTables {
public:
    explicit CheckedTables(const InputFile& file) : source_(file) {}

    template <class Record>
    [[nodiscard]] Record record(std::int64_t position) {
        return decode<Record>(source_.at(position, sizeof(Record)).template first<sizeof(Record)>());
    }

    [[nodiscard]] bool contains(std::int64_t position, std::int64_t length) const {
        return source_.contains(position, length);
    }

    /// The header, and behind it the table of its textures as a whole inside the file.
    template <class Header, class Entry>
    [[nodiscard]] Header header() {
        if (!contains(records::typeWordSize, sizeof(Header))) {
            throw DamagedArchive{"The file ends inside its header."};
        }
        const auto header = record<Header>(records::typeWordSize);
        const std::int64_t count = header.textureCount;
        if (count < 0 || count > largestCount) {
            throw DamagedArchive{"The header says that there are " + std::to_string(count) +
                                 " textures; possible are 0 to " + std::to_string(largestCount) + "."};
        }
        const std::int64_t first = records::typeWordSize + static_cast<std::int64_t>(sizeof(Header));
        const std::int64_t length = count * static_cast<std::int64_t>(sizeof(Entry));
        if (!contains(first, length)) {
            throw DamagedArchive{"The file ends inside its table of " + std::to_string(count) + " textures."};
        }
        return header;
    }

    /// The absolute position that an offset leads to, within 31 bits.
    [[nodiscard]] static std::int32_t target(std::int32_t field, std::int32_t offset, const Place& place) {
        const std::int64_t position = std::int64_t{field} + offset;
        if (position < std::numeric_limits<std::int32_t>::min() || position > largestPosition) {
            throw DamagedArchive{place.owner() + ": the offset of " + place.what() + at(field) +
                                 " leads to " + std::to_string(position) + ", beyond any archive."};
        }
        return static_cast<std::int32_t>(position);
    }

    void requireInside(std::int64_t position, std::int64_t length, const Place& place) const {
        if (contains(position, length)) return;
        throw DamagedArchive{place.owner() + ": " + place.what() + " would lie at " +
                             std::to_string(position) + " to " + std::to_string(position + length) +
                             ", outside the file of " + std::to_string(source_.size()) + " bytes."};
    }

    /// Appends the texture's mipmap table, which begins at `table`, to `mipmaps`.
    void readMipmapEntries(std::int32_t table, std::int32_t count, const Place& place,
                           std::vector<PlacedMipmapEntry>& mipmaps) {
        checkMipmapCount(count, mipmaps.size(), place);
        if (count == 0) return;
        constexpr std::int64_t entrySize = sizeof(records::MipmapEntry);
        requireInside(table, count * entrySize, place);
        for (std::int64_t j = 0; j < count; ++j) {
            const std::int64_t position = table + j * entrySize;
            if (position > largestPosition) {
                throw DamagedArchive{place.owner() + ": " + place.what() + " goes beyond any archive" +
                                     at(position) + "."};
            }
            const auto entry = record<records::MipmapEntry>(position);
            checkLevel(static_cast<std::int32_t>(position), entry,
                       {place.texture, place.name, "the data of its level", j});
            mipmaps.push_back({static_cast<std::int32_t>(position), entry});
        }
    }

private:
    static void checkMipmapCount(std::int32_t count, std::size_t before, const Place& place) {
        if (count < 0) {
            throw DamagedArchive{place.owner() + " says that it has " + std::to_string(count) + " levels."};
        }
        if (static_cast<std::int64_t>(before) + count > largestCount) {
            throw DamagedArchive{place.owner() + ": with its " + std::to_string(count) +
                                 " levels there are more than " + std::to_string(largestCount) +
                                 " in the archive, the most that are possible."};
        }
    }

    void checkLevel(std::int32_t position, const records::MipmapEntry& entry, const Place& place) const {
        const std::int32_t data = target(position, entry.dataOffset, place);
        if (entry.dataSize < 0) {
            throw DamagedArchive{place.owner() + ": " + place.what() + " has a size of " +
                                 std::to_string(entry.dataSize) + " bytes" + at(position + 4) + "."};
        }
        if (entry.dataSize > 0) requireInside(data, entry.dataSize, place);
    }

    TableSource source_;
};

template <class Header, class Entry>
constexpr std::int32_t entryPosition(std::size_t index) {
    return static_cast<std::int32_t>(records::typeWordSize + sizeof(Header) + index * sizeof(Entry));
}

Tables0C readTextures0C(const InputFile& file) {
    using Entry = records::TextureEntry0C;
    CheckedTables entries{file};
    CheckedTables levels{file};
    Tables0C tables;
    tables.header = entries.header<records::Header0C, Entry>();
    const auto count = static_cast<std::size_t>(tables.header.textureCount);
    tables.textures.reserve(count);
    tables.mipmaps.reserve(count); // as long as each has one
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t position = entryPosition<records::Header0C, Entry>(i);
        const auto entry = entries.record<Entry>(position);
        const Place place{i, entry.name, "the table of its levels"};
        const std::int32_t field = position + records::mipmapTableField;
        const std::int32_t table = CheckedTables::target(field, entry.mipmapTableOffset, place);
        levels.readMipmapEntries(table, entry.mipmapCount, place, tables.mipmaps);
        tables.textures.push_back({entry, field, table});
    }
    return tables;
}

TablesCdds readTexturesCdds(const InputFile& file) {
    using Entry = records::TextureEntryCdds;
    CheckedTables entries{file};
    CheckedTables levels{file};
    TablesCdds tables;
    tables.header = entries.header<records::HeaderCdds, Entry>();
    const auto count = static_cast<std::size_t>(tables.header.textureCount);
    tables.textures.reserve(count);
    tables.mipmaps.reserve(count); // as long as each has one
    constexpr auto descriptorSize = static_cast<std::int32_t>(sizeof(records::TextureDescriptor));
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t position = entryPosition<records::HeaderCdds, Entry>(i);
        const auto entry = entries.record<Entry>(position);
        const Place descriptorPlace{i, entry.name, "its descriptor"};
        const std::int32_t field = position + records::descriptorField;
        const std::int32_t start = CheckedTables::target(field, entry.descriptorOffset, descriptorPlace);
        levels.requireInside(start, descriptorSize, descriptorPlace);
        const auto descriptor = levels.record<records::TextureDescriptor>(start);
        const Place tablePlace{i, entry.name, "the table of its levels"};
        const std::int32_t table = CheckedTables::target(start, descriptorSize, tablePlace);
        levels.readMipmapEntries(table, descriptor.mipmapCount, tablePlace, tables.mipmaps);
        tables.textures.push_back({entry, descriptor, field, start});
    }
    return tables;
}

const records::FourCC& fourCCOf(const PlacedTexture0C& texture) { return texture.entry.fourCC; }
const records::FourCC& fourCCOf(const PlacedTextureCdds& texture) { return texture.descriptor.fourCC; }

template <class Tables>
CddsArchive catalogueOf(const Tables& tables, CddsType type) {
    CddsArchive archive;
    archive.type = type;
    archive.totalMipmapCount = static_cast<std::int16_t>(tables.mipmaps.size());
    archive.textures.reserve(tables.textures.size());
    auto next = tables.mipmaps.begin();
    for (const auto& placed : tables.textures) {
        TextureRecord& texture = archive.textures.emplace_back();
        texture.name = fieldText(placed.entry.name);
        texture.fourCC = fieldText(fourCCOf(placed));
        texture.mipmapCount = mipmapCountOf(placed);
        texture.mipmaps.reserve(static_cast<std::size_t>(texture.mipmapCount));
        for (std::int32_t j = 0; j < texture.mipmapCount; ++j, ++next) {
            const records::MipmapEntry& entry = next->entry;
            texture.mipmaps.push_back({fourCCOf(placed), next->position + entry.dataOffset, entry.dataSize,
                                       entry.width, entry.height});
        }
    }
    return archive;
}

} // namespace

ArchiveContents readArchive(const InputFile& file) {
    CheckedTables start{file};
    if (!start.contains(0, records::typeWordSize)) {
        throw DamagedArchive{"The file is only " + std::to_string(file.size()) + " bytes long."};
    }
    switch (start.record<std::int32_t>(0)) {
    case records::typeWord0C:
        return readTextures0C(file);
    case records::typeWordCdds:
        return readTexturesCdds(file);
    default:
        return NotAnArchive{};
    }
}

CddsArchive makeCatalogue(const ArchiveContents& contents) {
    if (const auto* tables = std::get_if<Tables0C>(&contents)) return makeCatalogue(*tables);
    if (const auto* tables = std::get_if<TablesCdds>(&contents)) return makeCatalogue(*tables);
    return {};
}
CddsArchive makeCatalogue(const Tables0C& tables) { return catalogueOf(tables, CddsType::Type0C); }
CddsArchive makeCatalogue(const TablesCdds& tables) { return catalogueOf(tables, CddsType::TypeCdds); }

} // namespace pelrath
