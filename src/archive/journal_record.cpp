#include "archive/journal_record.hpp"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <type_traits>
#include <utility>

#include <zlib.h>

namespace pelrath {

namespace {

constexpr std::string_view magic = "PELRATHJ";
constexpr std::uint32_t format = 2;

std::uint32_t checksum(Bytes bytes) {
    return static_cast<std::uint32_t>(
        ::crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

class Writing {
public:
    void expect(std::size_t size) { bytes_.reserve(size); }

    template <class Number>
    void number(Number value) {
        static_assert(std::is_integral_v<Number>);
        block(std::as_bytes(std::span{&value, 1}));
    }
    void block(Bytes bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }
    void counted(Bytes bytes) {
        number(std::uint64_t{bytes.size()});
        block(bytes);
    }
    void text(std::string_view text) { counted(std::as_bytes(std::span{text})); }

    [[nodiscard]] const std::vector<std::byte>& bytes() const { return bytes_; }
    [[nodiscard]] std::vector<std::byte> take() { return std::move(bytes_); }

private:
    std::vector<std::byte> bytes_;
};

/// What is read past the end is zero or empty, and fails the whole.
class Reading {
public:
    explicit Reading(Bytes bytes) : rest_(bytes) {}

    template <class Number>
    Number number() {
        Number value{};
        const Bytes bytes = block(sizeof value);
        if (!bytes.empty()) std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }
    Bytes block(std::uint64_t size) {
        if (size > rest_.size()) {
            failed_ = true;
            rest_ = {};
            return {};
        }
        const Bytes bytes = rest_.first(static_cast<std::size_t>(size));
        rest_ = rest_.subspan(bytes.size());
        return bytes;
    }
    Bytes counted() { return block(number<std::uint64_t>()); }
    std::string text() {
        const Bytes bytes = counted();
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

    [[nodiscard]] bool atEnd() const { return !failed_ && rest_.empty(); }
    [[nodiscard]] bool failed() const { return failed_; }
    [[nodiscard]] std::size_t left() const { return rest_.size(); }

private:
    Bytes rest_;
    bool failed_ = false;
};

void write(Writing& out, const FileIdentity& identity) {
    out.number(identity.device);
    out.number(identity.inode);
    out.number(identity.size);
    out.number(identity.modified);
    out.number(identity.statusChanged);
    out.number(identity.born);
}

FileIdentity readIdentity(Reading& in) {
    FileIdentity identity;
    identity.device = in.number<std::uint64_t>();
    identity.inode = in.number<std::uint64_t>();
    identity.size = in.number<std::uint64_t>();
    identity.modified = in.number<std::int64_t>();
    identity.statusChanged = in.number<std::int64_t>();
    identity.born = in.number<std::int64_t>();
    return identity;
}

void writeStart(Writing& out, std::uint64_t size) {
    out.block(std::as_bytes(std::span{magic}));
    out.number(format);
    out.number(size);
    out.number(checksum(out.bytes()));
}

/// The length of the whole record; nothing where this is no start of one of this format.
std::optional<std::uint64_t> readStart(Reading& in, Bytes bytes) {
    (void)in.block(magic.size() + sizeof format);
    const auto size = in.number<std::uint64_t>();
    (void)in.number<std::uint32_t>();
    if (in.failed()) return std::nullopt;
    Writing start;
    writeStart(start, size);
    return std::ranges::equal(start.bytes(), bytes.first(journalStartSize)) ? std::optional{size}
                                                                            : std::nullopt;
}

void readLevels(Reading& in, JournalRecord& record) {
    // A wrong count ends with the bytes.
    for (auto count = in.number<std::uint32_t>(); count > 0 && !in.failed(); --count) {
        const auto at = in.number<std::int64_t>();
        const Bytes data = in.counted();
        const Bytes old = in.block(data.size());
        record.levels.push_back({at, {data.begin(), data.end()}});
        record.old.push_back({at, {old.begin(), old.end()}});
    }
}

JournalRecord readFields(Reading& in) {
    JournalRecord record;
    record.archivePath = in.text();
    record.textureName = in.text();
    record.archive = readIdentity(in);
    record.tables = in.number<std::uint32_t>();
    record.mode = in.number<std::uint32_t>();
    readLevels(in, record);
    return record;
}

void writeFields(Writing& out, const JournalRecord& record) {
    out.text(record.archivePath);
    out.text(record.textureName);
    write(out, record.archive);
    out.number(record.tables);
    out.number(std::uint32_t{record.mode});
    out.number(static_cast<std::uint32_t>(record.levels.size()));
    for (std::size_t i = 0; i < record.levels.size(); ++i) {
        out.number(record.levels[i].dataOffset);
        out.counted(record.levels[i].data);
        out.block(record.old.at(i).data);
    }
}

} // namespace

std::uint32_t tablesChecksum(const CddsArchive& catalogue) {
    Writing out;
    out.number(static_cast<std::uint32_t>(catalogue.type));
    for (const TextureRecord& texture : catalogue.textures) {
        out.text(texture.name);
        out.text(texture.fourCC);
        out.number(texture.mipmapCount);
        for (const MipmapRecord& level : texture.mipmaps) {
            for (const std::int32_t value : {level.dataOffset, level.dataSize, level.width, level.height}) {
                out.number(value);
            }
        }
    }
    return checksum(out.bytes());
}

std::uint32_t pathChecksum(const std::string& path) { return checksum(std::as_bytes(std::span{path})); }

std::vector<std::byte> encodeJournal(const JournalRecord& record) {
    Writing fields;
    writeFields(fields, record);
    Writing out;
    const std::size_t size = journalStartSize + fields.bytes().size() + sizeof(std::uint32_t);
    out.expect(size);
    writeStart(out, size);
    out.block(fields.bytes());
    out.number(checksum(out.bytes()));
    return out.take();
}

std::optional<std::uint64_t> journalSize(Bytes start) {
    Reading in{start};
    return readStart(in, start);
}

std::optional<JournalRecord> decodeJournal(Bytes bytes) {
    Reading in{bytes};
    if (readStart(in, bytes) != bytes.size()) return std::nullopt;
    JournalRecord record = readFields(in);
    const std::size_t summed = bytes.size() - in.left();
    const bool whole = in.number<std::uint32_t>() == checksum(bytes.first(summed)) && in.atEnd();
    return whole ? std::optional{std::move(record)} : std::nullopt;
}

bool isCutShort(Bytes bytes) {
    if (bytes.size() < journalStartSize) {
        const auto letters = std::as_bytes(std::span{magic});
        const std::size_t known = std::min(bytes.size(), letters.size());
        return std::ranges::equal(bytes.first(known), letters.first(known));
    }
    Reading in{bytes};
    const auto size = readStart(in, bytes);
    return size && bytes.size() < *size;
}

} // namespace pelrath
