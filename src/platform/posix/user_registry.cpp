#include "platform/posix/user_registry.hpp"

#include "platform/posix/files.hpp"
#include "platform/posix/glib_owned.hpp"
#include "platform/runtime_error.hpp"

#include <array>

namespace pelrath {

namespace {

// A name of any kind as one that file names, groups and keys may have.
std::string plainName(const std::string& name) {
    const GlibOwned<char> valid{g_utf8_make_valid(name.data(), static_cast<gssize>(name.size()))};
    const GlibOwned<char> folded{g_utf8_casefold(valid.get(), -1)};
    const GlibOwned<char> escaped{g_uri_escape_string(folded.get(), nullptr, false)};
    return std::string{"_"}.append(escaped.get()); // never empty
}

std::string folderOf() { return joinPath(g_get_user_config_dir(), "pelrath"); }

// An application's name may be a whole path, longer than the name of a file can be.
std::string pathOf(const std::string& application) {
    const GlibOwned<char> digest{
        g_compute_checksum_for_string(G_CHECKSUM_SHA256, plainName(application).c_str(), -1)};
    return joinPath(folderOf(), std::string{digest.get()} + ".settings");
}

GlibOwned<GKeyFile> load(const std::string& path) {
    GlibOwned<GKeyFile> file{g_key_file_new()};
    GError* problem = nullptr;
    if (fileExists(path) && !g_key_file_load_from_file(file.get(), path.c_str(), G_KEY_FILE_NONE, &problem)) {
        const GlibOwned<GError> error{problem};
        throw makeError(ErrorNumber::DeviceIoError, "UserRegistry", error->message);
    }
    return file;
}

} // namespace

std::optional<std::string> readRegistry(const std::string& application, const std::string& section,
                                        const std::string& key) {
    const GlibOwned<GKeyFile> file = load(pathOf(application));
    const GlibOwned<char> escaped{
        g_key_file_get_string(file.get(), plainName(section).c_str(), plainName(key).c_str(), nullptr)};
    if (!escaped) return std::nullopt;
    const GlibOwned<char> value{g_uri_unescape_string(escaped.get(), nullptr)};
    return value ? std::string{value.get()} : std::string{};
}

void writeRegistry(const std::string& application, const std::string& section, const std::string& key,
                   const std::string& value) {
    const std::string path = pathOf(application);
    const GlibOwned<GKeyFile> file = load(path);
    const GlibOwned<char> escaped{g_uri_escape_string(value.c_str(), nullptr, true)};
    g_key_file_set_string(file.get(), plainName(section).c_str(), plainName(key).c_str(), escaped.get());
    gsize length = 0;
    const GlibOwned<char> text{g_key_file_to_data(file.get(), &length, nullptr)};
    if (g_mkdir_with_parents(folderOf().c_str(), 0700) != 0) {
        throw makeError(ErrorNumber::PathFileAccess, "UserRegistry", folderOf());
    }
    const std::array<Bytes, 1> pieces{std::as_bytes(std::span{text.get(), length})};
    replaceFile(path, pieces, Durability::Flushed);
}

} // namespace pelrath
