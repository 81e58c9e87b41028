#include "inspection/insertion_check.hpp"

#include "batch/collected_messages.hpp"
#include "batch/level_texels.hpp"
#include "batch/opened_archive.hpp"
#include "imaging/level_difference.hpp"
#include "inspection/source_findings.hpp"
#include "platform/posix/file_mode.hpp"
#include "platform/posix/scratch_file.hpp"
#include "platform/text.hpp"
#include "transfer/image_file_name.hpp"
#include "transfer/picture_levels.hpp"

#include <optional>

namespace pelrath::inspection {

namespace {

/// The library as the dialog has started it, with its messages collected.
struct Library {
    explicit Library(MessageBoxes& messages) : facade(messages, options), use(facade, images) {}
    [[nodiscard]] TransferImaging imaging() { return {facade, images, options, use}; }

    SaveImageOptions options;
    ImageLibraryFacade facade;
    LibraryImages images;
    ImageLibraryUse use;
};

/// Without what begins a message of the library: its own name for the failure, and a number.
class PlainMessages : public batch::CollectedMessages {
public:
    BoxAnswer show(const std::string& text, const std::string& title, BoxIcon icon,
                   BoxButtons buttons) override {
        constexpr std::string_view paragraph = "\r\n\r\n";
        const std::size_t at = text.find(paragraph);
        const std::string plain = at == std::string::npos ? text : text.substr(at + paragraph.size());
        return CollectedMessages::show(plain, title, icon, buttons);
    }
};

std::uint64_t notSolid(const LevelPicture& picture) {
    std::uint64_t count = 0;
    for (std::size_t at = 3; at < picture.texels.size(); at += bytesPerTexel) {
        if (picture.texels[at] != std::byte{255}) ++count;
    }
    return count;
}

class Check {
public:
    Check(Session& session, const InsertionChoice& choice, BusySign* busy)
        : session_(session), choice_(choice), library_(messages_),
          archive_(session, &library_.facade.longWork()), writer_(archive_) {
        library_.facade.longWork().showBy(busy, "Checking " + session.selectedBaseName);
    }

    InsertionCheck take() {
        std::string unsupported = batch::whyNotSupported(texture());
        if (!unsupported.empty()) {
            unsupported.front() = 'T';
            refuse(unsupported);
        } else if (!messages_.attempt([this] { return look(); })) {
            refuse(messages_.takeFirst());
        }
        library_.facade.longWork().showBy(nullptr);
        return std::move(result_);
    }

private:
    [[nodiscard]] const TextureRecord& texture() const { return session_.chosenTexture(); }
    void find(Grade grade, const std::string& text) { result_.findings.push_back({grade, text}); }
    void refuse(const std::string& reason) { find(Grade::Refused, reason + "."); }

    bool look() {
        result_.format = texture().fourCC == "DXT1" ? BlockFormat::Dxt1 : BlockFormat::Dxt5;
        archive_.requireTables();
        if (isReadOnly(fileMode(*archive_.file())))
            find(Grade::Note, session_.archivePath + " is read only: you will be asked first.");
        if (!choice_.intoArchive) {
            refuse("\"Insert Texture in CDDS file\" has no mark");
            return true;
        }
        if (!(choice_.ofPicture ? holdPicture() : holdFiles())) return true;
        showHeld();
        tellHeld();
        return true;
    }

    bool holdPicture() {
        if (!choice_.wish) return nothingMarked();
        const std::string path = buildImageFileName(session_, choice_.wish->firstLevel, choice_.kind);
        if (!library_.use.start()) return false;
        PictureLevels picture{library_.imaging(), session_.programFolder, path};
        if (!picture) {
            refuse(messages_.takeFirst());
            return false;
        }
        const MipmapRecord& level = texture().mipmaps.at(static_cast<std::size_t>(choice_.wish->firstLevel));
        lookAtSides(path, picture.sides(), level, result_.findings);
        alpha_ = library_.facade.boundAlpha();
        const ScratchFile built{session_.programFolder.pathFor("tmp1.dds")};
        bool held = false;
        try {
            held = picture.chooseFormat(texture()) &&
                   picture.hold(built.path(), *choice_.wish, archive_, writer_);
            if (!held) refuse(messages_.takeFirst());
            for (const std::string& line : messages_.take()) {
                find(Grade::Note, line + ".");
            }
        } catch (const SourceTooShort&) {
            refuse(path + " is too short: it gives less data than the texture has");
        }
        built.remove();
        picture.remove();
        noteHeld(choice_.wish->selectedLevel);
        return held;
    }

    bool nothingMarked() {
        refuse("No mipmap selected");
        return false;
    }

    bool holdFiles() {
        const std::vector<std::int16_t> levels =
            choice_.ofChain ? std::vector{LevelWriter::everyLevel} : choice_.levels;
        if (levels.empty()) return nothingMarked();
        bool whole = true;
        for (const std::int16_t level : levels) {
            whole = holdFile(level) && whole;
        }
        if (whole && writer_.held() == 0) refuse("There is no file to be inserted");
        return whole && writer_.held() > 0;
    }

    /// False where the file keeps all of them from being inserted.
    bool holdFile(std::int16_t level) {
        const bool chain = level == LevelWriter::everyLevel;
        const TakenFile file{
            buildImageFileName(session_, chain ? std::int16_t{0} : level, ImageFileKind::Dds),
            chain ? std::int16_t{0} : level, chain};
        if (!fileExists(file.path)) {
            find(Grade::Note, file.path + " is not there" +
                                  (chain ? "." : ": level " + std::to_string(level) + " stays as it is."));
            return true;
        }
        if (const auto header = headerOf(file.path)) lookAtHeader(file, *header, texture(), result_.findings);
        try {
            writer_.readMipmapLevels(file.path, session_.selectedTexture, chain, level);
        } catch (const SourceTooShort&) {
            refuse(file.path + " is too short, so that nothing is written at all");
            return false;
        }
        noteHeld(level);
        return true;
    }

    /// Nothing where the file ends inside it.
    static std::optional<DdsHeader> headerOf(const std::string& path) {
        const InputFile file{path};
        if (file.size() < sizeof(DdsHeader)) return std::nullopt;
        std::vector<std::byte> start(sizeof(DdsHeader));
        file.readAt(0, start);
        return ddsHeaderOf(start);
    }

    /// Which levels the writer holds, in its order.
    void noteHeld(std::int16_t level) {
        for (std::int16_t i = 0; i < static_cast<std::int16_t>(texture().mipmaps.size()); ++i) {
            const bool meant = level == LevelWriter::everyLevel || level == i;
            if (meant && texture().mipmaps[static_cast<std::size_t>(i)].dataSize > 0) held_.push_back(i);
        }
    }

    void showHeld() {
        const auto file = archive_.file();
        for (std::size_t i = 0; i < held_.size(); ++i) {
            const MipmapRecord& record = texture().mipmaps[static_cast<std::size_t>(held_[i])];
            CheckedLevel level{held_[i], record.width, record.height, batch::dataOf(*file, record),
                               writer_.heldLevels()[i].data};
            changed_ = changed_ || level.before != level.after;
            if (batch::whyNotDecoded(texture(), record).empty()) {
                result_.levels.push_back(std::move(level));
            } else {
                find(Grade::Note, "Level " + std::to_string(held_[i]) +
                                      " cannot be shown: " + batch::whyNotDecoded(texture(), record) + ".");
            }
        }
    }

    void tellHeld() {
        if (!result_.levels.empty()) {
            const CheckedLevel& largest = result_.levels.front();
            Transparency texels;
            library_.facade.longWork().run(
                static_cast<std::uint64_t>(largest.width) * static_cast<std::uint64_t>(largest.height), [&] {
                    texels = {notSolidIn(largest, largest.before), notSolidIn(largest, largest.after)};
                });
            lookAtAlpha(texels, alpha_ ? &*alpha_ : nullptr, texture(), result_.findings);
        }
        const std::size_t all = texture().mipmaps.size();
        if (held_.size() < all) {
            find(Grade::Note,
                 std::to_string(held_.size()) + " of " + std::to_string(all) +
                     " levels would be written. The others stay as they are, and are seen at other "
                     "distances.");
        } else {
            find(Grade::Well, all == 1 ? "The only level would be written."
                                       : "All " + std::to_string(all) + " levels would be written.");
        }
        if (!changed_) find(Grade::Note, "The archive has this very data: nothing would change.");
    }

    [[nodiscard]] std::uint64_t notSolidIn(const CheckedLevel& level, Bytes blocks) const {
        return notSolid(pictureOf(result_.format, blocks, level.width, level.height));
    }

    Session& session_;
    const InsertionChoice& choice_;
    PlainMessages messages_;
    Library library_;
    HeldArchive archive_;
    LevelWriter writer_;
    std::optional<AlphaUse> alpha_;
    std::vector<std::int16_t> held_;
    bool changed_ = false;
    InsertionCheck result_;
};

} // namespace

InsertionCheck checkInsertion(Session& session, const InsertionChoice& choice, BusySign* busy) {
    try {
        return Check{session, choice, busy}.take();
    } catch (...) {
        if (busy != nullptr) busy->clear();
        throw;
    }
}

} // namespace pelrath::inspection
