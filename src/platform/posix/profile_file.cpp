#include "platform/posix/profile_file.hpp"

#include "platform/posix/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <array>
#include <limits>

#include <glib.h>
#include <unistd.h>

namespace pelrath {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n\f\v";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool sameName(std::string_view a, std::string_view b) {
    return upperCase(trimmed(a)) == upperCase(trimmed(b));
}

std::string_view withoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view shownValue(std::string_view stored) { return withoutQuotes(trimmed(stored)); }

/// The value as it stands behind the equals sign: in quotes where it would not be read back without them.
std::string storedValue(std::string_view value) {
    std::string stored{value};
    return shownValue(value) == value ? stored : '"' + stored + '"';
}

bool breaks(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

std::string wholeText(const std::string& path) {
    const InputFile file{path};
    if (file.size() > Profile::largest) {
        throw RuntimeError{static_cast<int>(ErrorNumber::Overflow), "Profile",
                           path + " is longer than settings ever are (1 MiB)"};
    }
    std::string text(static_cast<std::size_t>(file.size()), '\0');
    file.readAt(0, std::as_writable_bytes(std::span{text}));
    return text;
}

// Only a file that is known to be missing has no text: these two numbers stand for nothing else.
std::string textOf(const std::string& path) try {
    return wholeText(path);
} catch (const RuntimeError& error) {
    const auto number = static_cast<ErrorNumber>(error.number());
    if (number != ErrorNumber::FileNotFound && number != ErrorNumber::PathNotFound) throw;
    return {};
}

} // namespace

Profile::Profile(std::string path) : path_(std::move(path)), before_(textOf(path_)) {
    if (before_.starts_with(byteOrderMark)) mark_ = byteOrderMark;
    split(std::string_view{before_}.substr(mark_.size()));
    if (before_.find("\r\n") != std::string::npos) lineEnd_ = "\r\n";
}

void Profile::split(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines_.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

Profile::Place Profile::find(std::string_view section, std::string_view key) const {
    bool inside = false;
    std::size_t place = 0;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = trimmed(lines_[i]);
        if (line.starts_with('[')) {
            if (inside) break;
            inside = sameName(line.substr(1, line.find(']') - 1), section);
            if (inside) place = i + 1;
        } else if (inside && !line.empty()) {
            const std::size_t equals = line.find('=');
            const bool comment = line.front() == ';';
            if (!comment && equals != std::string_view::npos && sameName(line.substr(0, equals), key))
                return {i, true};
            place = i + 1; // behind the section's last line, before the blank ones
        }
    }
    return {place, false};
}

std::optional<std::string> Profile::text(std::string_view section, std::string_view key,
                                         std::size_t longest) const {
    const auto [line, found] = find(section, key);
    if (!found) return std::nullopt;
    const std::string_view whole{lines_[line]};
    std::string value{shownValue(whole.substr(whole.find('=') + 1))};
    value.resize(bytesOfCharacters(value, longest));
    return value;
}

std::int32_t Profile::number(std::string_view section, std::string_view key, std::int32_t missing) const {
    const auto value = text(section, key, std::numeric_limits<std::size_t>::max());
    if (!value || value->empty()) return missing;
    const bool negative = value->front() == '-';
    std::string_view digits = *value;
    if (negative || digits.front() == '+') digits.remove_prefix(1);
    std::uint32_t base = 10;
    for (const auto& [prefix, prefixBase] : {std::pair{"0x", 16U}, {"0o", 8U}, {"0b", 2U}}) {
        if (!digits.starts_with(prefix)) continue;
        base = prefixBase;
        digits.remove_prefix(2);
    }
    std::uint32_t number = 0;
    for (const char digit : digits) {
        const int worth = g_ascii_xdigit_value(digit);
        if (worth < 0 || static_cast<std::uint32_t>(worth) >= base) break;
        number = number * base + static_cast<std::uint32_t>(worth);
    }
    return static_cast<std::int32_t>(negative ? 0U - number : number);
}

void Profile::put(std::string_view section, std::string_view key, std::string_view value) {
    if (breaks(section) || breaks(key) || breaks(value)) return; // it would become lines of its own
    const std::string line = std::string{key}.append("=").append(storedValue(value));
    const auto [place, found] = find(section, key);
    if (found) {
        std::string& old = lines_[place];
        old.replace(0, old.find_last_not_of("\r\n") + 1, line);
        return;
    }
    const bool newSection = place == 0;
    const std::size_t at = newSection ? lines_.size() : place;
    if (at > 0 && lines_[at - 1].back() != '\n') lines_[at - 1] += lineEnd_; // the last one can lack it
    auto next = lines_.begin() + static_cast<std::ptrdiff_t>(at);
    if (newSection) next = lines_.insert(next, "[" + std::string{section} + "]" + lineEnd_) + 1;
    lines_.insert(next, line + lineEnd_);
}

void Profile::write() const {
    std::string after{mark_};
    for (const std::string& line : lines_) {
        after += line;
    }
    if (after == before_) return;
    if (fileExists(path_) && ::access(path_.c_str(), W_OK) != 0) {
        throw makeError(ErrorNumber::PermissionDenied, "Profile", path_);
    }
    const std::array<Bytes, 1> pieces{std::as_bytes(std::span{after})};
    replaceFile(path_, pieces, Durability::Flushed);
}

} // namespace pelrath
