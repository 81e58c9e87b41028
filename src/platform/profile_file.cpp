#include "platform/profile_file.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <array>
#include <vector>

#include <glib.h>
#include <unistd.h>

namespace pelrath {

namespace {

constexpr std::size_t largestProfile = std::size_t{1} << 20; // a settings file beyond this is none

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

/// A profile as the lines that it consists of, each with its line end.
class Profile {
public:
    explicit Profile(const std::string& whole) {
        if (whole.starts_with(byteOrderMark)) mark_ = byteOrderMark;
        const std::string text = whole.substr(mark_.size());
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
            lines_.push_back(text.substr(at, end - at));
            at = end;
        }
        if (text.find("\r\n") != std::string::npos) lineEnd_ = "\r\n";
    }

    [[nodiscard]] std::optional<std::string> value(std::string_view section, std::string_view key) const {
        const auto [line, found] = find(section, key);
        if (!found) return std::nullopt;
        const std::string& text = lines_[line];
        return std::string{withoutQuotes(trimmed(std::string_view{text}.substr(text.find('=') + 1)))};
    }

    void put(std::string_view section, std::string_view key, std::string_view value) {
        const std::string line = std::string{key}.append("=").append(value).append(lineEnd_);
        const auto [place, found] = find(section, key);
        if (found) {
            lines_[place] = line;
            return;
        }
        if (!lines_.empty() && lines_.back().back() != '\n') lines_.back() += lineEnd_;
        if (place == 0) {
            lines_.push_back("[" + std::string{section} + "]" + lineEnd_);
            lines_.push_back(line);
        } else {
            lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place), line);
        }
    }

    [[nodiscard]] std::string text() const {
        std::string all{mark_};
        for (const std::string& line : lines_) {
            all += line;
        }
        return all;
    }

private:
    struct Place {
        std::size_t line; // of the key; where it would go; 0 when there is no such section
        bool found;
    };

    [[nodiscard]] Place find(std::string_view section, std::string_view key) const {
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

    static constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

    std::string_view mark_;
    std::vector<std::string> lines_;
    std::string lineEnd_ = "\n";
};

// Fails as InputFile does.
std::string readText(const std::string& path) {
    const InputFile file{path};
    if (file.size() > largestProfile) throw makeError(ErrorNumber::Overflow, "readProfile", path);
    std::string text(static_cast<std::size_t>(file.size()), '\0');
    file.readAt(0, std::as_writable_bytes(std::span{text}));
    return text;
}

} // namespace

std::optional<std::string> readProfileString(const std::string& path, std::string_view section,
                                             std::string_view key, std::size_t longest) {
    try {
        auto value = Profile{readText(path)}.value(section, key);
        if (value) value->resize(bytesOfCharacters(*value, longest));
        return value;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::int32_t readProfileInt(const std::string& path, std::string_view section, std::string_view key,
                            std::int32_t missing) {
    const auto value = readProfileString(path, section, key, largestProfile);
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

bool writeProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value) {
    const auto breaks = [](std::string_view text) {
        return text.find_first_of("\r\n") != std::string_view::npos;
    };
    if (breaks(section) || breaks(key) || breaks(value)) return false; // it would become lines of its own
    try {
        const std::string before = fileExists(path) ? readText(path) : std::string{};
        Profile profile{before};
        profile.put(section, key, value);
        const std::string after = profile.text();
        if (after == before) return true;
        if (fileExists(path) && ::access(path.c_str(), W_OK) != 0) return false;
        const std::array<Bytes, 1> pieces{std::as_bytes(std::span{after})};
        replaceFile(path, pieces, Durability::Flushed);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

} // namespace pelrath
