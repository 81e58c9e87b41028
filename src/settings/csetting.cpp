#include "settings/csetting.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/program_folder.hpp"
#include "platform/posix/user_registry.hpp"
#include "platform/runtime_error.hpp"
#include "platform/text.hpp"

#include <charconv>
#include <cmath>
#include <functional>
#include <limits>

namespace pelrath {

namespace {

constexpr std::size_t longestIniValue = 127;

/// Runs an operation under its own name: whatever it raises leaves as its own error.
template <class Operation>
auto guarded(std::int32_t number, const char* source, const char* what, const Operation& operation) {
    try {
        return operation();
    } catch (const RuntimeError& caught) {
        throw RuntimeError{number, source,
                           std::string{what} + "(" + std::to_string(caught.number()) + ", " +
                               caught.description() + ")"};
    }
}

constexpr const char* readingFailed = "Error reading Setting ";
constexpr const char* writingFailed = "Error writing Setting ";

void writeSilently(const std::function<void()>& write) {
    try {
        write();
    } catch (const RuntimeError&) { // the file is as it was
    }
}

// 0 for a text that is no number.
std::int16_t numberIn(const std::string& text) {
    std::string_view digits = trimBlanks(text);
    if (digits.starts_with('+') && !digits.starts_with("+-")) digits.remove_prefix(1);
    double number = 0;
    const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (problem != std::errc{} || end != digits.data() + digits.size() || !std::isfinite(number)) return 0;
    const double rounded = std::nearbyint(number); // halves to even
    if (std::abs(rounded) > 100000) throw makeError(ErrorNumber::Overflow, "CSetting");
    return narrowed(static_cast<std::int64_t>(rounded));
}

} // namespace

std::int16_t narrowed(std::int64_t number) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (number < Limits::min() || number > Limits::max()) throw makeError(ErrorNumber::Overflow, "narrowed");
    return static_cast<std::int16_t>(number);
}

void CSetting::Init(const std::optional<std::string>& AppName, std::int32_t mode) {
    const std::string own = executablePath();
    appName_ = AppName ? std::string{trimBlanks(*AppName)}
                       : joinPath(parentFolder(own), withoutExtension(fileName(own)));
    iniFileName_ = appName_ + ".ini";
    saveMode_ = mode;
}

void CSetting::initialise() {
    if (appName_.empty()) Init();
}

template <class Read>
auto CSetting::reading(const Read& read) const {
    return pass_ ? read(*pass_) : read(Profile{iniFileName_});
}

std::string CSetting::GetSettingStr(const std::string& Section, const std::string& KeyName,
                                    const std::string& DefaultValue) {
    return guarded(ReadFailed, "CSetting.GetSettingStr", readingFailed, [&] {
        initialise();
        if (saveMode_ == RegistryMode) return readRegistry(appName_, Section, KeyName).value_or(DefaultValue);
        const std::string value = reading([&](const Profile& profile) {
                                      return profile.text(Section, KeyName, longestIniValue);
                                  }).value_or(DefaultValue);
        const std::string_view shown = trimBlanks(firstCharacters(value, longestIniValue));
        return std::string{shown.substr(0, shown.find('\0'))};
    });
}

std::int16_t CSetting::GetSettingInt(const std::string& Section, const std::string& KeyName,
                                     std::int16_t DefaultValue) {
    return guarded(ReadFailed, "CSetting.GetSettingInt", readingFailed, [&] {
        initialise();
        if (saveMode_ != RegistryMode) {
            return narrowed(reading(
                [&](const Profile& profile) { return profile.number(Section, KeyName, DefaultValue); }));
        }
        return numberIn(readRegistry(appName_, Section, KeyName).value_or(std::to_string(DefaultValue)));
    });
}

void CSetting::save(const std::string& section, const std::string& key, const std::string& value) {
    if (saveMode_ == RegistryMode) {
        writeRegistry(appName_, section, key, value);
    } else if (pass_) {
        pass_->put(section, key, value);
    } else {
        writeSilently([&] {
            Profile once{iniFileName_};
            once.put(section, key, value);
            once.write();
        });
    }
}

void CSetting::beginPass() { pass_.emplace(iniFileName_); }

void CSetting::endPass() {
    if (pass_) writeSilently([this] { pass_->write(); });
    pass_.reset();
}

void CSetting::SaveSettingStr(const std::string& Section, const std::string& KeyName,
                              const std::string& Setting) {
    guarded(WriteFailed, "CSetting.SaveSettingStr", writingFailed, [&] {
        initialise();
        save(Section, KeyName, Setting);
    });
}

void CSetting::SaveSettingInt(const std::string& Section, const std::string& KeyName, std::int16_t Setting) {
    guarded(WriteFailed, "CSetting.SaveSettingInt", writingFailed, [&] {
        initialise();
        save(Section, KeyName, std::to_string(Setting));
    });
}

} // namespace pelrath
