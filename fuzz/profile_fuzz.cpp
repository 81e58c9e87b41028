#include "platform/posix/profile_file.hpp"
#include "platform/text.hpp"
#include "require.hpp"
#include "settings/application_settings.hpp"
#include "support/temporary_folder.hpp"

#include <limits>
#include <optional>
#include <set>

// A settings file of any bytes, and what is put into it. The input begins with lines of the form
// section|key|value, in whose value \1 stands for a line feed and \2 for a carriage return; behind an empty
// line comes the file.

namespace {

using namespace pelrath;
using fuzz::require;

struct Entry {
    std::string section, key, value;
};
using Lines = std::vector<std::string>;

const std::vector<Entry> ofTheProgram = {
    {"Settings", "MainTop", ""},         {"Settings", "MainLeft", ""},
    {"Setup", "extractionfolder", ""},   {"Setup", "firsttimedone", ""},
    {"Settings", "ViewPortWidth", ""},   {"Settings", "ViewPortHeight", ""},
    {"Settings", "ViewPortColor", ""},   {"Settings", "bazartempfolder", ""},
    {"Settings", "cddsbackupfolder", ""}};

bool contains(std::string_view text, std::string_view any) {
    return text.find_first_of(any) != std::string_view::npos;
}

// Names that a line of the file can stand for.
bool possible(const Entry& entry) {
    constexpr std::string_view blanks = " \t\r\n\f\v";
    const bool padded =
        contains(blanks, entry.section.substr(0, 1)) || contains(blanks, entry.key.substr(0, 1)) ||
        (!entry.section.empty() && contains(blanks, entry.section.substr(entry.section.size() - 1))) ||
        (!entry.key.empty() && contains(blanks, entry.key.substr(entry.key.size() - 1)));
    return !padded && !entry.key.empty() && !contains(entry.section, "]\r\n") &&
           !contains(entry.key, "=\r\n") && entry.key.front() != '[' && entry.key.front() != ';';
}

bool sameNames(const Entry& a, const Entry& b) {
    return upperCase(a.section) == upperCase(b.section) && upperCase(a.key) == upperCase(b.key);
}

struct Input {
    std::vector<Entry> puts;
    std::string file;
};

Input parsed(std::string_view text) {
    Input input;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string line{text.substr(0, end)};
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty()) break;
        const std::size_t first = line.find('|'), second = line.find('|', first + 1);
        if (first == std::string::npos || second == std::string::npos) continue;
        Entry put{line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1)};
        std::replace(put.value.begin(), put.value.end(), '\1', '\n');
        std::replace(put.value.begin(), put.value.end(), '\2', '\r');
        if (possible(put)) input.puts.push_back(std::move(put));
    }
    input.file = text;
    return input;
}

Lines linesOf(std::string_view text) {
    Lines lines;
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3); // counts as no part of a line
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

bool holdsKey(const std::string& line, const std::string& key) {
    return contains(line, "=") && upperCase(line).find(upperCase(key)) != std::string::npos;
}

class SettingsFile {
public:
    explicit SettingsFile(const Input& input) : input_(input) { (void)folder().write("a.ini", input.file); }

    void putAll() const {
        for (const Entry& put : input_.puts) {
            putOne(put);
        }
    }

    void loadAndSave() const {
        const std::string base = folder().file("a"), before = bytes();
        ApplicationSettings first, second;
        if (!loads(base, first)) return;
        std::vector<std::optional<std::string>> stored;
        for (const Entry& own : ofTheProgram) {
            stored.push_back(valueOf(own));
        }
        saveApplicationSettings(base, first);
        for (std::size_t i = 0; i < stored.size(); ++i) {
            require(!plain(stored[i]) || valueOf(ofTheProgram[i]) == stored[i],
                    "each key gets its own value back");
        }
        require(loads(base, second), "what was saved can be loaded");
        // A text is cut at a NUL after its blanks were taken away, which leaves blanks that the next load
        // takes.
        require(contains(before, std::string_view{"\0", 1}) || all(first) == all(second), "settings survive");
        keepsForeignLines(before, bytes());
        saveApplicationSettings(base, second);
        saveApplicationSettings(base, second);
    }

private:
    static const test::TemporaryFolder& folder() {
        static const test::TemporaryFolder ofTheRun;
        return ofTheRun;
    }
    static std::string bytes() { return folder().read("a.ini"); }
    static std::string path() { return folder().file("a.ini"); }
    static std::optional<std::string> valueOf(const Entry& entry) {
        const Profile profile{path()};
        (void)profile.number(entry.section, entry.key, 0);
        return profile.text(entry.section, entry.key, std::numeric_limits<std::size_t>::max());
    }
    /// A value that loses nothing as a text, and nothing as a number.
    static bool plain(const std::optional<std::string>& value) {
        const auto digit = [](char c) { return c >= '1' && c <= '9'; };
        return value && !value->empty() && value->size() < 5 &&
               std::all_of(value->begin(), value->end(), digit);
    }
    static void write(const Entry& entry) {
        Profile profile{path()};
        profile.put(entry.section, entry.key, entry.value);
        profile.write();
    }

    void putOne(const Entry& put) const {
        const std::string before = bytes();
        std::vector<std::optional<std::string>> others;
        eachOther(put, [&](const Entry& other) { others.push_back(valueOf(other)); });
        write(put);
        if (contains(put.value, "\r\n")) return require(bytes() == before, "several lines are not put");
        require(valueOf(put) == put.value, "a value survives");
        auto old = others.begin();
        eachOther(put,
                  [&](const Entry& other) { require(valueOf(other) == *old++, "other values survive"); });
        changesOneLine(linesOf(before), linesOf(bytes()), put.key);
        const std::string after = bytes();
        require(after.starts_with("\xEF\xBB\xBF") == before.starts_with("\xEF\xBB\xBF"),
                "so does the byte order mark");
        write(put);
        require(bytes() == after, "the same value once more changes nothing");
    }

    template <class Use>
    void eachOther(const Entry& put, const Use& use) const {
        for (const std::vector<Entry>* entries : {&ofTheProgram, &input_.puts}) {
            for (const Entry& entry : *entries) {
                if (!sameNames(entry, put)) use(entry);
            }
        }
    }

    /// From the first line to the last nothing else is different, but for the line end that the last one
    /// lacks.
    static void changesOneLine(Lines before, Lines after, const std::string& key) {
        while (!before.empty() && !after.empty() && before.front() == after.front()) {
            before.erase(before.begin());
            after.erase(after.begin());
        }
        while (!before.empty() && !after.empty() && before.back() == after.back()) {
            before.pop_back();
            after.pop_back();
        }
        const bool completed = !before.empty() && after.size() > 1 && !before[0].ends_with('\n') &&
                               (after[0] == before[0] + "\n" || after[0] == before[0] + "\r\n");
        if (completed) {
            before.clear();
            after.erase(after.begin());
        }
        require(before.empty() ? after.size() <= 2 : before.size() == 1 && after.size() == 1,
                "one line is replaced, or one is added, with its section where that is new");
        require(before.empty() || holdsKey(before[0], key), "the line that is replaced is the key's");
    }

    static void keepsForeignLines(const std::string& before, const std::string& after) {
        const Lines now = linesOf(after);
        auto at = now.begin();
        for (const std::string& line : linesOf(before)) {
            const auto holdsLine = [&line](const Entry& entry) { return holdsKey(line, entry.key); };
            if (std::any_of(ofTheProgram.begin(), ofTheProgram.end(), holdsLine)) continue;
            at = std::find_if(at, now.end(), [&line](const std::string& kept) {
                return kept == line || kept == line + "\n" || kept == line + "\r\n";
            });
            require(at != now.end(), "foreign lines stay, in their order");
            ++at;
        }
    }

    static bool loads(const std::string& base, ApplicationSettings& settings) {
        try {
            loadApplicationSettings(base, settings);
        } catch (const SettingsPassEnded& end) {
            const std::set<std::string> numbers{"MainTop", "MainLeft", "ViewPortWidth", "ViewPortHeight",
                                                "ViewPortColor"};
            require(numbers.count(end.key()) == 1, "only a number ends a pass");
            require(std::string_view{end.what()} == "Error reading Setting (6, Overflow)",
                    "because it is too large");
            return false;
        }
        for (const std::string* text : texts(settings)) {
            require(characterCount(*text) <= 127 && !text->starts_with(' '), "texts are cut and trimmed");
        }
        return true;
    }
    static std::vector<const std::string*> texts(const ApplicationSettings& s) {
        return {&s.extractionFolder, &s.firstTimeDone, &s.bazarTempFolder, &s.cddsBackupFolder};
    }
    static std::string all(const ApplicationSettings& s) {
        return test::row(s.mainTop, s.mainLeft, s.extractionFolder, s.firstTimeDone, s.viewPortWidth,
                         s.viewPortHeight, s.viewPortColor, s.bazarTempFolder, s.cddsBackupFolder);
    }

    const Input& input_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Input input = parsed({reinterpret_cast<const char*>(data), size});
    const SettingsFile file{input};
    file.putAll();
    file.loadAndSave();
    return 0;
}
