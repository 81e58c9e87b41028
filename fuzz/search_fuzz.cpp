#include "mainwindow/incremental_search.hpp"
#include "mainwindow/main_controls.hpp"
#include "mainwindow/texture_choice.hpp"
#include "platform/text.hpp"
#include "require.hpp"
#include "support/fake_device.hpp"
#include "support/recording_boxes.hpp"
#include "support/values.hpp"

#include <algorithm>
#include <map>

// What a user does with the search box, the name list and the texture pane, beside a reference that is slow
// and plain. The input begins with the textures' names, a line each; behind an empty line comes what is
// typed. There, bytes below 32 do something else, with the byte behind them where they need a number (Act).

namespace {

using namespace pelrath;
using fuzz::require;

enum Act : unsigned char {
    Up = 1,
    Down = 2,
    ShiftUp = 3,
    PressName = 4, // a row
    PressLine = 5, // a row
    Hover = 6,
    Paste = 7, // what stands before the next such byte
    Backspace = 8,
    Delete = 9,
    CaretTo = 11,    // a position
    SelectFrom = 12, // a position, up to the caret
};

// Single-byte text as code points, so that a position is a character.
std::u32string wide(const std::string& ansi) {
    std::u32string text;
    for (const char byte : ansi) {
        const std::string utf8 = ansiToUtf8({&byte, 1});
        char32_t point = static_cast<unsigned char>(utf8[0]);
        if (utf8.size() == 2) point &= 0x1F;
        if (utf8.size() == 3) point &= 0x0F;
        for (std::size_t i = 1; i < utf8.size(); ++i) {
            point = (point << 6) | (static_cast<unsigned char>(utf8[i]) & 0x3F);
        }
        text += point;
    }
    return text;
}

char32_t large(char32_t c) {
    static const std::map<char32_t, char32_t> others{{0xB5, 0x39C},  {0xFF, 0x178},  {0x153, 0x152},
                                                     {0x161, 0x160}, {0x17E, 0x17D}, {0x192, 0x191}};
    const bool latin = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
    if (latin) return c - 0x20;
    const auto other = others.find(c);
    return other == others.end() ? c : other->second;
}

// What the box, the list and the pane hold, by the rules.
struct Reference {
    std::vector<std::u32string> names;
    std::u32string text;
    std::size_t start = 0, length = 0;
    int name = -1, line = -1;
    bool completes = false; // a character was typed since a Backspace
    int shown = 0;          // textures, one after another

    void type(char32_t c) {
        completes = true;
        replace(std::u32string(1, c));
    }
    void paste(const std::u32string& what) {
        completes = true;
        replace(what);
    }
    void backspace() {
        completes = start == 0;
        if (start > 0) {
            text.resize(start);
            length = 1;
            --start;
        }
        replace({});
    }
    void deleteOne() {
        if (length == 0 && start < text.size()) length = 1;
        replace({});
    }
    void pressName(int row) {
        name = row;
        takeName();
    }
    void pressLine(int row) {
        show(row);
        if (name == row) return;
        name = row;
        takeName();
    }
    void step(int rows) {
        const int row = name + rows;
        if (row < 0 || row >= static_cast<int>(names.size())) return;
        name = row;
        takeName();
        if (line != row) show(row);
    }
    void hover() {
        if (name >= 0) takeName();
    }

private:
    void show(int row) {
        line = row;
        ++shown;
    }
    // The chosen name is in the box, as its own completion.
    void takeName() {
        const std::u32string& chosen = names[static_cast<std::size_t>(name)];
        if (text != chosen) {
            text = chosen;
            start = completes ? text.size() : 0;
            length = 0;
        }
        if (completes && line != name) show(name);
    }
    void replace(const std::u32string& typed) {
        std::u32string after = text.substr(0, start) + typed + text.substr(start + length);
        start += typed.size();
        length = 0;
        if (std::exchange(text, after) != after && completes && !text.empty()) complete();
    }
    void complete() {
        for (std::size_t i = 0; i < names.size(); ++i) {
            const auto same = [](char32_t a, char32_t b) { return large(a) == large(b); };
            if (names[i].size() < text.size() ||
                !std::equal(text.begin(), text.end(), names[i].begin(), same))
                continue;
            start = text.size();
            length = names[i].size() - start;
            text = names[i];
            name = static_cast<int>(i);
            if (line != name) show(name);
            return;
        }
    }
};

// The real thing, with a picture that is never drawn.
struct Real {
    explicit Real(const std::vector<std::string>& names) {
        session.viewer.graphicDisplayOff = 1;
        session.selectedTexture = -1;
        for (std::size_t i = 0; i < names.size(); ++i) {
            TextureRecord texture;
            texture.name = ansiToUtf8(names[i]);
            texture.fourCC = "DXT1";
            texture.mipmaps.resize(i % 3);
            texture.mipmapCount = static_cast<std::int16_t>(i % 3);
            for (std::size_t level = 0; level < i % 3; ++level) {
                controls.Output[MipmapPane].append(std::to_string(i));
            }
            controls.Output[TexturePane].append(texture.name);
            controls.incrementalSearchList.append(texture.name);
            session.archive.textures.push_back(std::move(texture));
        }
    }
    [[nodiscard]] std::string state() const {
        return test::row(box.text(), box.selectionStart(), box.selectionLength(), list.selectedRow(),
                         pane.selectedRow(), shown);
    }
    // The levels that are marked, as those of one texture.
    [[nodiscard]] bool marksItsLevels() const {
        const ListBox& levels = controls.Output[MipmapPane];
        const std::string of = std::to_string(session.selectedTexture);
        for (int row = 0; row < levels.count(); ++row) {
            if (levels.isSelected(row) != (levels.line(row) == of)) return false;
        }
        return true;
    }

    Session session;
    MainControls controls;
    TextBox& box = controls.incrementalSearchText;
    ListBox& list = controls.incrementalSearchList;
    ListBox& pane = controls.Output[TexturePane];
    test::FakeSurface surface;
    test::ScriptedPump pump;
    test::RecordingBoxes boxes;
    TextureViewer viewer{{session.viewer, surface, pump, boxes, controls.Label11, controls.cmdShow}};
    IncrementalSearch search{{box, list, pane}};
    TextureLook look{controls.texelStrip, session, viewer, boxes};
    TextureChoice choice{{controls.Output, list, controls.Label11}, session, viewer, look, boxes};
    int shown = 0;
    Connection counter = pane.click.connect([this] { ++shown; });
};

class User {
public:
    explicit User(const std::vector<std::string>& names) : real_(names) {
        for (const std::string& name : names) {
            reference_.names.push_back(wide(name));
        }
    }

    void act(std::string_view acts) {
        while (!acts.empty()) {
            const auto what = static_cast<unsigned char>(acts[0]);
            acts.remove_prefix(1);
            const auto number = [&acts] {
                const auto byte = static_cast<unsigned char>(acts.empty() ? '\0' : acts[0]);
                acts.remove_prefix(acts.empty() ? 0 : 1);
                return byte;
            };
            switch (what) {
            case Up:
            case Down:
            case ShiftUp:
                press(static_cast<Act>(what));
                break;
            case PressName:
            case PressLine:
                choose(what == PressName, number());
                break;
            case Hover:
                real_.list.mouseMove.emit();
                reference_.hover();
                break;
            case Paste: {
                const std::size_t end = std::min(acts.find(static_cast<char>(Paste)), acts.size());
                paste(std::string{acts.substr(0, end)});
                acts.remove_prefix(std::min(end + 1, acts.size()));
                break;
            }
            case CaretTo:
            case SelectFrom:
                moveCaret(what == SelectFrom, number());
                break;
            default:
                if (what == Backspace || what == Delete || what >= 32) type(what);
            }
            compare(what);
        }
    }

private:
    void press(Act what) {
        KeyDown key{what == Down ? KeyCode::Down : KeyCode::Up, what == ShiftUp, false};
        real_.box.keyDown.emit(key);
        require(key.consumed == (what != ShiftUp), "an arrow by itself is consumed");
        if (what != ShiftUp) reference_.step(what == Down ? 1 : -1);
    }
    void choose(bool byName, unsigned row) {
        const auto count = static_cast<unsigned>(reference_.names.size());
        if (count == 0) return;
        const auto wanted = static_cast<int>(row % count);
        (byName ? real_.list : real_.pane).press(wanted);
        byName ? reference_.pressName(wanted) : reference_.pressLine(wanted);
    }
    void moveCaret(bool selecting, unsigned position) {
        const std::size_t to = position % (reference_.text.size() + 1);
        const std::size_t caret = reference_.start + reference_.length;
        reference_.start = selecting ? std::min(to, caret) : to;
        reference_.length = selecting ? std::max(to, caret) - reference_.start : 0;
        real_.box.adoptSelection(reference_.start, reference_.length);
    }
    // As the box's widget does it: the reactions see the key, then it acts on the text.
    void type(unsigned char key) {
        const char byte = static_cast<char>(key);
        if (key != Delete) real_.box.keyPress.emit(key == Backspace ? backspaceKey : wide({&byte, 1})[0]);
        if (key == Backspace) {
            reference_.backspace();
        } else if (key == Delete) {
            reference_.deleteOne();
        } else {
            reference_.type(wide({&byte, 1})[0]);
        }
        const std::size_t start = real_.box.selectionStart();
        const bool alone = real_.box.selectionLength() == 0;
        edit(alone && key == Backspace && start > 0 ? start - 1 : start,
             start + std::max<std::size_t>(real_.box.selectionLength(), alone && key == Delete ? 1 : 0),
             key == Backspace || key == Delete ? "" : ansiToUtf8({&byte, 1}));
    }
    void paste(const std::string& what) {
        real_.box.keyPress.emit(22);
        reference_.paste(wide(what));
        const std::size_t start = real_.box.selectionStart();
        edit(start, start + real_.box.selectionLength(), ansiToUtf8(what));
    }
    void edit(std::size_t from, std::size_t to, const std::string& by) {
        const std::string& text = real_.box.text();
        const std::string before{firstCharacters(text, from)},
            after = text.substr(bytesOfCharacters(text, to));
        real_.box.edit(before + by + after, from + characterCount(by), 0);
    }

    void compare(unsigned char act) {
        std::string text;
        for (const char32_t c : reference_.text) {
            text += utf8(c);
        }
        const std::string wanted = test::row(text, reference_.start, reference_.length, reference_.name,
                                             reference_.line, reference_.shown);
        require(real_.state() == wanted,
                "after " + std::to_string(act) + ": " + real_.state() + " is " + wanted);
        require(real_.session.selectedTexture == reference_.line, "the chosen line is the chosen texture");
        require(real_.marksItsLevels(), "the chosen texture's levels are marked, and no others");
    }
    static std::string utf8(char32_t c) {
        const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
        if (c < 0x80) return {byte(c)};
        if (c < 0x800) return {byte(0xC0 | (c >> 6)), byte(0x80 | (c & 0x3F))};
        return {byte(0xE0 | (c >> 12)), byte(0x80 | ((c >> 6) & 0x3F)), byte(0x80 | (c & 0x3F))};
    }

    Real real_;
    Reference reference_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text{reinterpret_cast<const char*>(data), size};
    std::vector<std::string> names;
    while (!text.empty() && text[0] != '\n') {
        const std::size_t end = std::min(text.find('\n'), text.size());
        names.emplace_back(text.substr(0, end));
        std::erase(names.back(), '\0'); // as in an archive's field
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (!text.empty()) text.remove_prefix(1);
    User{names}.act(text);
    return 0;
}
