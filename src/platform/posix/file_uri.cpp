#include "platform/posix/file_uri.hpp"

#include "platform/posix/glib_owned.hpp"

namespace pelrath {

std::optional<std::string> pathOfUri(const std::string& uri) {
    char* host = nullptr;
    const GlibOwned<char> path{g_filename_from_uri(uri.c_str(), &host, nullptr)};
    const GlibOwned<char> machine{host};
    if (!path || (machine && std::string_view{machine.get()} != "localhost")) return std::nullopt;
    return path.get();
}

std::string uriOfPath(const std::string& path) {
    const GlibOwned<char> uri{g_filename_to_uri(path.c_str(), nullptr, nullptr)};
    return uri ? uri.get() : "";
}

} // namespace pelrath
