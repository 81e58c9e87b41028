#include "archive/journal.hpp"
#include "archive/reader.hpp"
#include "archive/recovery.hpp"
#include "archive_builder.hpp"
#include "require.hpp"
#include "support/temporary_folder.hpp"

#include <sys/stat.h>
#include <zlib.h>

// An input that begins as a journal does is one, with and without the checksum that it lacks. Any other says
// what is wrong with the journal of a small archive and with the archive (Wrong), whether its owner may write
// into it before the insertion, what stands in the levels now (Found), and whether he may write now; behind
// these three bytes, each pair says a level's number or place, and with what it is filled.

namespace {

using namespace pelrath;
using fuzz::require;
using Outcome = RecoveredInsertion::Outcome;

std::string asText(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::optional<JournalRecord> decoded(const std::string& bytes) {
    return decodeJournal(std::as_bytes(std::span{bytes}));
}

void decode(const std::string& bytes) {
    const auto record = decoded(bytes);
    if (!record) return;
    require(asText(encodeJournal(*record)) == bytes, "a record has one form");
    for (std::size_t at = 0; at < bytes.size(); at += 1 + bytes.size() / 64) {
        std::string other = bytes;
        other[at] = static_cast<char>(other[at] ^ 0x10);
        require(!decoded(other), "no other byte will do");
        require(!decoded(bytes.substr(0, at)), "no part is a whole");
    }
}

std::string withChecksum(const std::string& bytes) {
    const auto sum = ::crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size());
    return bytes + little(static_cast<std::int64_t>(sum), 4);
}

enum Wrong : unsigned {
    Inode = 1,
    Size = 2,
    Birth = 4,
    Tables = 8,
    Path = 16,
    Torn = 32, ///< the journal
    Changed = 64,
};

enum Found : unsigned {
    Touched = 2, ///< since the journal was written
    Half = 4,    ///< each level has its first half
    Strange = 8, ///< the first level ends with a byte that is neither old nor new
};

/// A program that died inside an insertion, and the next one.
class Interrupted {
public:
    explicit Interrupted(std::string_view choices) : choices_(choices), wrong_(next()) {
        makeRecord();
        std::string journal = asText(encodeJournal(record_));
        if (is(Torn)) journal.resize(journal.size() / 2);
        if (is(Changed)) journal.back() = static_cast<char>(journal.back() ^ 1);
        std::filesystem::create_directory(folder_.file("program"));
        (void)folder_.write(journal_, journal);
    }

    void recover() {
        const std::vector<RecoveredInsertion> told = recoverInsertions(folder_.file("program"));
        if (is(Torn) && !is(Changed)) {
            require(told.empty() && folder_.names("program").empty(), "a journal without its end is removed");
            return requireUntouched();
        }
        if (is(Changed)) {
            const bool stays = folder_.names("program").size() == 1;
            require(stays || is(Torn), "a damaged journal stays");
            require(told.size() == (stays ? 1U : 0U) && (!stays || told[0].outcome == Outcome::Kept),
                    "and is told");
            return requireUntouched();
        }
        require(told.size() == 1 && told[0].journal == folder_.file(journal_) &&
                    told[0].archivePath == record_.archivePath && told[0].levels == record_.levels.size(),
                "an interrupted insertion is told");
        const Outcome outcome = told[0].outcome;
        require(outcome == expected(), "as it ended");
        const bool stays = outcome == Outcome::Kept;
        require(folder_.read(journal_) == (stays ? asText(encodeJournal(record_)) : ""),
                "its journal stays, or goes");
        require(stays != told[0].reason.empty(), "with a reason");
        if (other_ || is(Path)) {
            require(folder_.read("a.cdds") == found_, "no byte of the archive is another");
        } else {
            const bool written = outcome == Outcome::Completed;
            require(folder_.read("a.cdds") == (written ? whole_ : old_), "every level is wholly new, or old");
        }
        const bool again = isItsFile() && (record_.mode & 0200U) == 0 && mode_ == (record_.mode | 0200U);
        require(mode() == (again ? record_.mode : mode_) && told[0].readOnlyAgain == again,
                "what was read-only is so again");
    }

private:
    unsigned next() {
        if (choices_.empty()) return 0;
        const auto byte = static_cast<unsigned char>(choices_[0]);
        choices_.remove_prefix(1);
        return byte;
    }
    [[nodiscard]] bool is(Wrong wrong) const { return (wrong_ & wrong) != 0; }
    [[nodiscard]] bool is(Found found) const { return (foundAs_ & found) != 0; }
    [[nodiscard]] unsigned mode() const {
        struct stat status {};
        stat(folder_.file("a.cdds").c_str(), &status);
        return status.st_mode & 07777U;
    }
    void requireUntouched() const {
        require(folder_.read("a.cdds") == found_ && mode() == mode_, "the archive is as it was");
    }
    /// Whose permissions are given back, unless there is nothing else to do in it.
    [[nodiscard]] bool isItsFile() const {
        const bool isAnother = is(Path) || is(Size) || is(Birth) || (is(Inode) && record_.archive.born == 0);
        return !isAnother && !(other_ && record_.levels.empty());
    }
    [[nodiscard]] Outcome expected() const {
        if (is(Path) || (other_ && !record_.levels.empty())) return Outcome::Kept;
        const bool allOld = is(Touched) && found_ == old_ && record_.old != record_.levels;
        return record_.levels.empty() || allOld ? Outcome::NothingWritten : Outcome::Completed;
    }

    void makeRecord() {
        ArchiveBuilder builder{CddsType::TypeCdds,
                               {{"a.bmp", "DXT1", {{8, 4, std::string(16, 'a')}, {4, 2, "87654321"}}},
                                {"b.tga", "DXT5", {{4, 4, std::string(16, 'b')}, {2, 2, ""}}}}};
        old_ = whole_ = builder.build();
        const InputFile file{folder_.write("a.cdds", old_)};
        const CddsArchive catalogue = makeCatalogue(readArchive(file));
        record_ = {file.path() + (is(Path) ? "x" : ""),
                   "a.bmp",
                   file.identity(),
                   tablesChecksum(catalogue),
                   0,
                   {},
                   {}};
        record_.archive.inode += is(Inode) ? 1U : 0U;
        record_.archive.size -= is(Size) ? 1U : 0U;
        record_.archive.born += is(Birth) ? 1 : 0;
        record_.tables ^= is(Tables) ? 1U : 0U;
        // Where there is a time of birth, inodes may change.
        other_ = (is(Inode) && record_.archive.born == 0) || is(Size) || is(Birth) || is(Tables);
        foundAs_ = next();
        record_.mode = foundAs_ % 2 == 0 ? 0440 : 0640;
        mode_ = next() % 2 == 0 ? 0440 : 0640;
        while (!choices_.empty()) {
            const unsigned which = next();
            addLevel(catalogue, which, next());
        }
        found_ = old_;
        for (const LevelBytes& level : record_.levels)
            find(level);
        (void)folder_.write("a.cdds", found_);
        chmod(file.path().c_str(), mode_);
        record_.archive.statusChanged = file.identity().statusChanged - (is(Touched) ? 1 : 0);
    }
    void find(const LevelBytes& level) {
        const auto at = static_cast<std::size_t>(level.dataOffset);
        if (is(Half) && level.data.size() > 1)
            found_.replace(at, level.data.size() / 2, whole_, at, level.data.size() / 2);
        if (!is(Strange) || &level != &record_.levels.front() || level.data.empty()) return;
        const std::size_t last = at + level.data.size() - 1;
        if (last >= old_.size()) return;
        char strange = 0;
        while (strange == old_[last] || isNew(last, strange))
            ++strange;
        found_[last] = strange;
        other_ = true;
    }
    /// One level can be there twice, with other bytes.
    [[nodiscard]] bool isNew(std::size_t at, char value) const {
        return std::any_of(record_.levels.begin(), record_.levels.end(), [&](const LevelBytes& level) {
            const std::size_t i =
                at - static_cast<std::size_t>(level.dataOffset); // of one in front of it, huge
            return i < level.data.size() && level.data[i] == std::byte(value);
        });
    }
    void addLevel(const CddsArchive& catalogue, unsigned which, unsigned fill) {
        const MipmapRecord& level = catalogue.textures[which % 2].mipmaps[which / 2 % 2];
        const bool moved = (which & 64U) != 0, larger = (which & 128U) != 0;
        const auto size = static_cast<std::size_t>(level.dataSize) + (larger ? 1 : 0);
        const auto at = static_cast<std::size_t>(level.dataOffset) + (moved ? 1 : 0);
        const Bytes old = std::as_bytes(std::span{old_}.subspan(std::min(at, old_.size())));
        const Bytes known = old.first(std::min(size, old.size()));
        record_.levels.push_back({static_cast<std::int64_t>(at), std::vector(size, std::byte(fill))});
        record_.old.push_back({static_cast<std::int64_t>(at), {known.begin(), known.end()}});
        record_.old.back().data.resize(size);
        other_ = other_ || moved || larger;
        if (!moved && !larger)
            whole_.replace(static_cast<std::size_t>(level.dataOffset), size, size, static_cast<char>(fill));
    }

    std::string_view choices_;
    unsigned wrong_;
    test::TemporaryFolder folder_;
    std::string journal_ = "program/insertion-1-1.journal";
    JournalRecord record_;
    std::string old_, whole_, found_;
    unsigned foundAs_ = 0;
    unsigned mode_ = 0;  ///< of the archive, when it is found
    bool other_ = false; ///< it is not the one that the journal is of
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input{reinterpret_cast<const char*>(data), size};
    if (input.starts_with('P')) {
        decode(input);
        decode(withChecksum(input));
    } else {
        Interrupted{input}.recover();
    }
    return 0;
}
