#pragma once

#include "platform/posix/profile_file.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace pelrath {

/// Named texts and 16-bit numbers, kept in a private profile file or in the user's own registry. Nothing is
/// cached outside a pass. Each get and save raises its own error in place of whatever failed inside it: a
/// RuntimeError with ReadFailed or WriteFailed, whose description holds the caught number and description.
/// A profile file that is missing is no failure; one that is there and cannot be read is one of every get.
class CSetting {
public:
    static constexpr std::int32_t ReadFailed = -2147220989;  ///< 0x80040203
    static constexpr std::int32_t WriteFailed = -2147220990; ///< 0x80040202

    /// Where values are kept; any other number means IniMode too.
    static constexpr std::int32_t RegistryMode = 0;
    static constexpr std::int32_t IniMode = 1;

    /// Without a name: the executable's folder and its name without extension. Blanks around a name go. A get
    /// or save before any Init() runs Init() first.
    void Init(const std::optional<std::string>& AppName = std::nullopt, std::int32_t mode = RegistryMode);

    /// At most 127 characters of a value from a profile file, without the blanks around it.
    [[nodiscard]] std::string GetSettingStr(const std::string& Section, const std::string& KeyName,
                                            const std::string& DefaultValue);
    [[nodiscard]] std::int16_t GetSettingInt(const std::string& Section, const std::string& KeyName,
                                             std::int16_t DefaultValue);
    /// A profile file that cannot be written is no failure, nor one that cannot be read: it stays as it is.
    void SaveSettingStr(const std::string& Section, const std::string& KeyName, const std::string& Setting);
    void SaveSettingInt(const std::string& Section, const std::string& KeyName, std::int16_t Setting);

    /// From here on every get and save of a profile file is of this one reading. Fails as Profile does.
    void beginPass();
    /// The reading itself, during a pass.
    [[nodiscard]] Profile& pass() { return pass_.value(); }
    /// Writes what the pass has saved, all of it or nothing.
    void endPass();

    [[nodiscard]] std::int32_t SaveMode() const { return saveMode_; }
    void setSaveMode(std::int32_t mode) { saveMode_ = mode; }
    [[nodiscard]] const std::string& appName() const { return appName_; }
    [[nodiscard]] const std::string& iniFileName() const { return iniFileName_; }

private:
    void initialise();
    template <class Read>
    auto reading(const Read& read) const;
    void save(const std::string& section, const std::string& key, const std::string& value);

    std::int32_t saveMode_ = RegistryMode;
    std::string iniFileName_;
    std::string appName_;
    std::optional<Profile> pass_;
};

/// A number as a 16-bit one; fails with "Overflow" outside -32768 to 32767.
[[nodiscard]] std::int16_t narrowed(std::int64_t number);

} // namespace pelrath
