#include "platform/posix/files.hpp"
#include "require.hpp"
#include "transfer/transfer_harness.hpp"

#include <sys/stat.h>

// What a user does in the dialog of one texture, beside a reference: how the choices rule one another, and
// what an operation makes of the files. Each byte of the input is one act:
//   I D      the texture's own kind of image, DDS
//   s e x c  Single, Embedded, External, Create
//   0 to 9   the mark of a level
//   a n      all levels, none
//   f        the next filter
//   o        overwrite
//   t z k    the destinations archive and Bazar Temp, and the safe copy
//   b        the button beside the Bazar Temp folder
//   r        the action button
//   q        quit, and open again with the next texture
//   m        quit, and open again in the other mode
// and of the world around it:
//   w        the archive's levels become others
//   p        the archive becomes read-only, or is so no more
//   y        questions get the other answer
//   l        the Bazar Temp folder is lost; the next question for one is answered
//   g        a question for a Bazar Temp folder is not answered

namespace {

using namespace pelrath;
using namespace pelrath::test;
using fuzz::require;

using Files = std::map<std::string, std::string>;

// The choices, by the rules.
struct Choices {
    bool insertion = false;
    std::optional<ImageFileKind> native;
    int kindOption = -1, operationOption = -1;
    bool offered[4] = {}; // operations
    ImageFileKind kind = ImageFileKind::Bmp;
    int operation = Single;
    std::vector<bool> marks;
    bool filter = false, warning = false, bazarTempOffered = true;
    bool intoArchive = false, intoBazarTemp = false, safeCopy = false;

    void setUp(bool inserting, std::optional<ImageFileKind> nativeKind, std::size_t levels) {
        *this = {};
        insertion = intoArchive = safeCopy = inserting;
        native = nativeKind;
        marks.assign(levels, inserting);
        chooseDds();
        if (!marks[0]) mark(0);
    }
    void chooseNative() {
        if (kindOption == NativeFileType) return;
        kindOption = NativeFileType;
        if (operationOption != Single) operationOption = -1;
        offered[Embedded] = offered[External] = offered[Create] = false;
        kind = native.value_or(kind);
        warning = insertion && kind == ImageFileKind::Tga;
        if (insertion) {
            offered[Single] = offered[Create] = true;
            chooseOperation(Create);
            bazarTempOffered = false;
        } else {
            offered[Single] = false;
            operationOption = -1;
            all();
        }
    }
    void chooseDds() {
        if (kindOption == DdsFileType) return;
        kindOption = DdsFileType;
        std::fill(std::begin(offered), std::end(offered), true);
        kind = ImageFileKind::Dds;
        warning = false;
        bazarTempOffered = true;
        const bool several = std::count(marks.begin(), marks.end(), true) > 1;
        chooseOperation(insertion || several ? Embedded : Single);
    }
    void chooseOperation(int wanted) {
        if (operationOption == wanted) return;
        operationOption = operation = wanted;
        filter = wanted == Create;
        all();
    }
    void mark(std::size_t level) {
        if (level >= marks.size()) return;
        const bool marked = !marks[level];
        if (one()) none();
        marks[level] = marked;
        if (whole()) all();
    }
    void all() {
        marks.assign(marks.size(), !one());
        marks[0] = true;
    }
    void none() {
        marks.assign(marks.size(), false);
        if (whole()) all();
    }
    [[nodiscard]] bool one() const {
        return insertion ? operation == Single : kind != ImageFileKind::Dds || operation == Single;
    }
    [[nodiscard]] bool whole() const {
        return operation == Create || (kind == ImageFileKind::Dds && operation == Embedded);
    }
    [[nodiscard]] std::string state() const {
        std::string text = row(kindOption, operationOption, offered[0], offered[1], offered[2], offered[3],
                               filter, warning, bazarTempOffered || !insertion);
        if (insertion) text += row(" to", intoArchive, intoBazarTemp, safeCopy);
        for (const bool marked : marks) {
            text += marked ? " x" : " .";
        }
        return text;
    }
};

std::string state(const TransferControls& c, bool insertion) {
    std::string text =
        row(c.optOutFileType.selectedIndex(), c.optMipmaps.selectedIndex(), c.optMipmaps[0].enabled(),
            c.optMipmaps[1].enabled(), c.optMipmaps[2].enabled(), c.optMipmaps[3].enabled(),
            c.lstScaleFilter.enabled(), c.lblWarningTgaInsert.visible(),
            c.chkDestination[ToBazarTemp].enabled() || !insertion);
    if (insertion)
        text += row(" to", c.chkDestination[ToArchive].checked(), c.chkDestination[ToBazarTemp].checked(),
                    c.chkSaveCdds.checked());
    for (int level = 0; level < c.List1.count(); ++level) {
        text += c.List1.isChecked(level) ? " x" : " .";
    }
    return text;
}

class User {
public:
    explicit User(std::string_view acts) : acts_(acts) {
        h_.open({CddsType::TypeCdds,
                 {chainOf("flat.bmp", "DXT1", 8, 8),
                  chainOf("long.tga", "DXT5", 16, 4),
                  {"point.bmp", "DXT1", {{4, 4, "12345678"}}},
                  chainOf("other.dds", "ATI2", 8, 8),
                  {"hole.bmp", "DXT1", {{8, 4, std::string(16, 'h')}, {4, 2, ""}, {2, 1, "87654321"}}}}});
        h_.chooseBazarTempFolder = [this] {
            h_.session.settings.bazarTempFolder = answersFolder_ ? h_.folder.file("bazar") : "";
        };
    }
    void play() {
        while (!acts_.empty()) {
            h_.show(insertion_ ? DialogMode::Insertion : DialogMode::Extraction, [this] { playOnce(); });
        }
        require(h_.boxes.take().empty(), "closing says nothing");
    }

private:
    TransferControls& c() { return h_.dialog; }

    void playOnce() {
        const std::string& type = h_.chosen().fourCC;
        const auto native = type == "DXT1"   ? std::optional{ImageFileKind::Bmp}
                            : type == "DXT5" ? std::optional{ImageFileKind::Tga}
                                             : std::nullopt;
        choices_.setUp(insertion_, native, h_.chosen().mipmaps.size());
        compare('q');
        while (!acts_.empty()) {
            const char act = acts_[0];
            acts_.remove_prefix(1);
            if (act == 'm') insertion_ = !insertion_;
            if (act == 'q')
                h_.choose(static_cast<std::int16_t>((h_.session.selectedTexture + 1) %
                                                    static_cast<int>(h_.session.archive.textures.size())));
            if (act == 'm' || act == 'q') return;
            if (act == 'r') {
                operate();
            } else {
                choose(act);
                around(act);
            }
            compare(act);
        }
    }

    void compare(char act) {
        const std::string is = state(c(), insertion_), wanted = choices_.state();
        require(is == wanted, std::string{"after "} + act + ": " + is + " is " + wanted);
        require(c().List1.currentRow() == 0, "no rule moves the list's row");
        require(c().lstScaleFilter.enabled() == (c().lblFilter.textColor() == TextColor::Normal),
                "the filter's label is as grey as the filter");
        require(!insertion_ ||
                    (c().txtbazarTempFolder.enabled() == c().chkDestination[ToBazarTemp].enabled() &&
                     c().cmdGetBazarTempFolder.enabled() == c().txtbazarTempFolder.enabled()),
                "a folder can be chosen where it counts");
    }

    // A user reaches only what is shown and enabled.
    static bool usable(const Control& control) { return control.enabled() && control.visible(); }
    void press(OptionButton& option, auto reference) {
        if (!usable(option)) return;
        option.select();
        reference();
    }
    static void toggle(CheckBox& box) { box.setChecked(!box.checked()); }

    void choose(char act) {
        const std::size_t operation = std::string_view{"sexc"}.find(act);
        if (operation < 4)
            press(c().optMipmaps[operation], [&] { choices_.chooseOperation(static_cast<int>(operation)); });
        if (act == 'I') press(c().optOutFileType[NativeFileType], [&] { choices_.chooseNative(); });
        if (act == 'D') press(c().optOutFileType[DdsFileType], [&] { choices_.chooseDds(); });
        if (act >= '0' && act <= '9') {
            c().List1.setChecked(act - '0', !c().List1.isChecked(act - '0'));
            choices_.mark(static_cast<std::size_t>(act - '0'));
        }
        if (act == 'a') (c().cmdSelAllResolution.press(), choices_.all());
        if (act == 'n') (c().cmdSelNoneResolution.press(), choices_.none());
        if (act == 'f' && usable(c().lstScaleFilter))
            c().lstScaleFilter.select((c().lstScaleFilter.selectedRow() + 1) % 9);
        if (act == 'o' && !insertion_) toggle(c().chkOverwriteExistingFiles);
        if (insertion_) chooseDestination(act);
    }

    void chooseDestination(char act) {
        if (act == 't') {
            toggle(c().chkDestination[ToArchive]);
            choices_.intoArchive = choices_.safeCopy = !choices_.intoArchive;
        }
        if (act == 'k') {
            toggle(c().chkSaveCdds);
            choices_.safeCopy = !choices_.safeCopy;
        }
        const bool lost = h_.session.settings.bazarTempFolder.empty();
        if (act == 'z' && usable(c().chkDestination[ToBazarTemp])) {
            toggle(c().chkDestination[ToBazarTemp]);
            choices_.intoBazarTemp = !choices_.intoBazarTemp && (!lost || answersFolder_);
        }
        if (act == 'b' && usable(c().cmdGetBazarTempFolder)) {
            c().cmdGetBazarTempFolder.press();
            choices_.intoBazarTemp = choices_.intoBazarTemp && answersFolder_;
        }
    }

    void around(char act) {
        if (act == 'w') {
            std::string bytes = h_.archive();
            for (const TextureRecord& texture : h_.session.archive.textures) {
                for (const MipmapRecord& level : texture.mipmaps) {
                    const auto from = bytes.begin() + level.dataOffset;
                    std::for_each(from, from + level.dataSize, [](char& byte) { ++byte; });
                }
            }
            h_.rewrite(bytes);
        }
        if (act == 'p') {
            readOnly_ = !readOnly_;
            chmod(h_.session.archivePath.c_str(), readOnly_ ? 0440 : 0644);
        }
        if (act == 'y')
            h_.boxes.answer = h_.boxes.answer == BoxAnswer::Ok ? BoxAnswer::Cancel : BoxAnswer::Ok;
        if (act == 'l') h_.session.settings.bazarTempFolder.clear();
        if (act == 'l' || act == 'g') answersFolder_ = act == 'l';
    }

    // An operation, and what it may have done to any file.

    struct World {
        std::string archive;
        Files out, copies;
        mode_t mode = 0;
    };
    [[nodiscard]] Files filesIn(const std::string& folder) const {
        Files files;
        for (const std::string& name : h_.folder.names(folder)) {
            files[name] = h_.folder.read(std::string{folder}.append("/").append(name));
        }
        return files;
    }
    [[nodiscard]] World world() const {
        struct stat status {};
        stat(h_.session.archivePath.c_str(), &status);
        return {h_.archive(), filesIn("out"), filesIn("copies"), status.st_mode};
    }

    void operate() {
        const World before = world();
        c().cmdExtractInsert.press();
        const World after = world();
        const std::string summary = c().ExtractSummary.text();
        const std::vector<ShownBox> boxes = h_.boxes.take();
        require(after.mode == before.mode, "the archive is as read-only as before");
        require(h_.outside(after.archive) == h_.outside(before.archive),
                "nothing but the texture's levels changes");
        for (const std::string& name : h_.folder.names("program")) {
            require(name == "tmp1.dds", "nothing else is left in the program folder");
        }
        if (!choices_.native) {
            require(boxes.size() == 1 && unchanged(before, after), "an unknown type is refused in a message");
        } else if (insertion_) {
            judgeInsertion(before, after, summary);
        } else {
            judgeExtraction(before, after, summary);
        }
        for (const ShownBox& box : boxes) {
            require(!box.text.empty() && box.text.find("  ") == std::string::npos,
                    "messages are whole sentences");
        }
    }
    static bool unchanged(const World& before, const World& after) {
        return before.archive == after.archive && before.out == after.out && before.copies == after.copies;
    }

    [[nodiscard]] std::string nameOf(std::size_t level, const char* extension) const {
        const MipmapRecord& record = h_.chosen().mipmaps[level];
        return h_.session.selectedBaseName + "-" + std::to_string(record.width) + "x" +
               std::to_string(record.height) + extension;
    }
    [[nodiscard]] std::vector<std::size_t> marked() const {
        std::vector<std::size_t> levels;
        for (std::size_t i = 0; i < choices_.marks.size(); ++i) {
            if (choices_.marks[i]) levels.push_back(i);
        }
        return levels;
    }
    [[nodiscard]] bool dds() const { return choices_.kind == ImageFileKind::Dds; }
    static int count(const std::string& text, std::string_view words) {
        int found = 0;
        for (std::size_t at = 0; (at = text.find(words, at)) != std::string::npos; at += words.size()) {
            ++found;
        }
        return found;
    }

    void judgeExtraction(const World& before, const World& after, const std::string& summary) {
        require(after.archive == before.archive && after.copies == before.copies,
                "an extraction only makes files");
        // What the files are to hold behind their headers.
        Files wanted;
        const char* const extension = dds() ? ".dds" : choices_.kind == ImageFileKind::Tga ? ".tga" : ".bmp";
        std::string chain;
        for (const std::size_t level : marked()) {
            const std::string data = h_.levelOf(before.archive, level);
            if (data.empty()) return; // is refused in a message
            wanted[nameOf(level, extension)] = data;
            chain += data;
        }
        if (dds() && choices_.operation == Embedded) wanted = {{nameOf(0, ".dds"), chain}};
        int written = 0;
        for (const auto& [name, data] : wanted) {
            const bool kept = before.out.count(name) == 1 && !c().chkOverwriteExistingFiles.checked();
            require(after.out.count(name) == 1, "what is extracted is there");
            const std::string& file = after.out.at(name);
            require(kept ? file == before.out.at(name)
                         : !dds() || (file.size() > 128 && file.substr(128) == data),
                    "a file holds what the archive does, or stays as it was");
            written += kept ? 0 : 1;
        }
        for (const auto& [name, bytes] : after.out) {
            const auto old = before.out.find(name);
            require(wanted.count(name) == 1 || (old != before.out.end() && old->second == bytes),
                    "no other file is made or changed");
        }
        require(summary.ends_with(std::to_string(written) + " file(s) extracted."),
                "the summary counts the files");
        require(count(summary, " written\r\n") + count(summary, " overwritten.\r\n") ==
                    written + count(summary, " not overwritten.\r\n"),
                "and names each of them");
    }

    void judgeInsertion(const World& before, const World& after, const std::string& summary) {
        require(after.out == before.out, "an insertion leaves the images alone, and nothing beside them");
        Files copies = after.copies;
        for (const auto& [name, bytes] : before.copies) {
            require(copies[name] == bytes, "an older safe copy stays");
            copies.erase(name);
        }
        require(copies.size() <= 1 && (copies.empty() || copies.begin()->second == before.archive),
                "a safe copy is the archive as it was");
        const bool changed = after.archive != before.archive;
        require(!changed || !choices_.safeCopy || copies.size() == 1, "nothing changes without a safe copy");
        require(copies.size() == static_cast<std::size_t>(count(summary, "Safe copy done as ")),
                "which is told");
        const bool image = !dds() || choices_.operation == Create;
        require(!changed || !readOnly_ || h_.boxes.answer == BoxAnswer::Ok, "a no is a no");
        if (image) {
            require(!changed || choices_.intoArchive || !dds(), "only into the destination");
            const bool one = choices_.operation == Single;
            const bool all =
                summary.find(one ? "\r\n1 mipmaps(s)" : std::to_string(written()) + " mipmaps(s)") !=
                std::string::npos;
            require(all || !changed, "levels are inserted together, and counted");
            for (std::size_t i = 0; one && i < choices_.marks.size(); ++i) {
                require(choices_.marks[i] || h_.levelOf(after.archive, i) == h_.levelOf(before.archive, i),
                        "a level that is not marked stays");
            }
        } else {
            judgeDdsInsertion(before, after, summary);
        }
    }

    // Levels that have data.
    [[nodiscard]] std::size_t written() const {
        const auto& levels = h_.chosen().mipmaps;
        return static_cast<std::size_t>(std::count_if(
            levels.begin(), levels.end(), [](const MipmapRecord& level) { return level.dataSize > 0; }));
    }

    void judgeDdsInsertion(const World& before, const World& after, const std::string& summary) {
        const bool chain = choices_.operation == Embedded;
        const bool refused = !choices_.intoArchive || (readOnly_ && h_.boxes.answer != BoxAnswer::Ok);
        std::string wanted = before.archive;
        int inserted = 0;
        std::size_t skipped = 128;
        bool whole = !refused;
        for (const std::size_t level : marked()) {
            const MipmapRecord& record = h_.chosen().mipmaps[level];
            const auto size = static_cast<std::size_t>(record.dataSize);
            const auto source = before.out.find(nameOf(chain ? 0 : level, ".dds"));
            if (source == before.out.end()) continue;
            whole = whole && source->second.size() >= skipped + size && (size > 0 || chain);
            if (!whole) break;
            wanted.replace(static_cast<std::size_t>(record.dataOffset), size, source->second, skipped, size);
            inserted += size > 0 ? 1 : 0;
            skipped += chain ? size : 0;
        }
        require(after.archive == (whole ? wanted : before.archive),
                "all that is marked is inserted, or nothing");
        if (!refused && !chain && !marked().empty())
            require(summary.find(std::to_string(whole ? inserted : 0) + " mipmap(s) inserted.\r\n") !=
                        std::string::npos,
                    "the summary counts the levels");
    }

    std::string_view acts_;
    TransferHarness h_;
    Choices choices_;
    bool insertion_ = false, readOnly_ = false, answersFolder_ = true;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    User{{reinterpret_cast<const char*>(data), size}}.play();
    return 0;
}
