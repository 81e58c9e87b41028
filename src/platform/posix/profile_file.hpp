#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pelrath {

/// One reading of a private profile file: "[section]" lines and "key=value" lines below them. Sections and
/// keys are found without regard to case; blanks around sections, keys and values do not count; a line that
/// begins with a semicolon is a comment. The text is UTF-8; bytes that are none stay as they are.
class Profile {
public:
    /// A missing file is an empty profile. Fails, as InputFile does, where the file is there and cannot be
    /// read, and with "Overflow" beyond `largest` bytes.
    explicit Profile(std::string path);

    static constexpr std::size_t largest = std::size_t{1} << 20;

    /// The value under section and key, cut to its first `longest` characters. One pair of quotes around it,
    /// single or double, does not belong to it. Nothing when section or key is missing.
    [[nodiscard]] std::optional<std::string> text(std::string_view section, std::string_view key,
                                                  std::size_t longest) const;

    /// The number that the value begins with (decimal, or with 0x, 0o, 0b of that base), 0 where it begins
    /// with none, reduced to 32 bits; `missing` where there is no value or an empty one.
    [[nodiscard]] std::int32_t number(std::string_view section, std::string_view key,
                                      std::int32_t missing) const;

    /// Puts the value under section and key, which are made as needed, and leaves everything else as it is,
    /// down to the line ends. A value that begins or ends with a blank, or stands in quotes itself, is put in
    /// quotes. A text of more than one line, which the format cannot hold, is not put.
    void put(std::string_view section, std::string_view key, std::string_view value);

    /// Puts the file in place, if anything in it has changed. Fails, with the old file whole, as
    /// replaceFile() does.
    void write() const;

private:
    struct Place {
        std::size_t line; // of the key; where it would go; 0 when there is no such section
        bool found;
    };
    void split(std::string_view text);
    [[nodiscard]] Place find(std::string_view section, std::string_view key) const;

    std::string path_;
    std::string before_;             ///< the text as it was read
    std::string_view mark_;          ///< of UTF-8, where it begins with that
    std::vector<std::string> lines_; ///< each with its line end
    std::string lineEnd_ = "\n";     ///< of lines that are added
};

} // namespace pelrath
