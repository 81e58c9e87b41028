#include "platform/file_associations.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"

#include <gio/gio.h>

#include <memory>

namespace pelrath {

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class T>
using Object = std::unique_ptr<T, Unref>;

struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
    void operator()(char** words) const { g_strfreev(words); }
    void operator()(GError* error) const { g_error_free(error); }
};
using Text = std::unique_ptr<char, Free>;

Object<GAppInfo> programFor(const std::string& file) {
    // By the extension alone: an empty file's content is of no kind.
    const std::string name = "file." + std::string{fileExtension(file)};
    const Text type{g_content_type_guess(name.c_str(), nullptr, 0, nullptr)};
    if (g_content_type_is_unknown(type.get()) != FALSE) return nullptr;
    return Object<GAppInfo>{g_app_info_get_default_for_type(type.get(), FALSE)};
}

} // namespace

std::string DesktopAssociations::executableFor(const std::string& file) {
    const Object<GAppInfo> program = programFor(file);
    const char* command = program ? g_app_info_get_commandline(program.get()) : nullptr;
    char** split = nullptr;
    if (command == nullptr || g_shell_parse_argv(command, nullptr, &split, nullptr) == FALSE) return {};
    const std::unique_ptr<char*, Free> words{split};
    const Text path{g_find_program_in_path(split[0])};
    return path ? path.get() : "";
}

// Through its desktop entry, as a sandboxed program has no other way to be started.
void DesktopAssociations::open(const std::string& file) {
    const Object<GAppInfo> program = programFor(file);
    if (!program) throw makeError(ErrorNumber::FileNotFound, "launchEditor", file);
    const Object<GFile> argument{g_file_new_for_path(file.c_str())};
    const std::unique_ptr<GList, decltype(&g_list_free)> arguments{g_list_append(nullptr, argument.get()),
                                                                   &g_list_free};
    const Object<GAppLaunchContext> context{g_app_launch_context_new()};
    // Started "at time 0", long before anything the user did: for window managers that heed it, and programs
    // that pass it on, the focus stays where it is.
    g_app_launch_context_setenv(context.get(), "DESKTOP_STARTUP_ID", "pelrath_TIME0");
    GError* error = nullptr;
    if (g_app_info_launch(program.get(), arguments.get(), context.get(), &error) != FALSE) return;
    const std::unique_ptr<GError, Free> failure{error};
    throw makeError(ErrorNumber::FileNotFound, "launchEditor", failure->message);
}

} // namespace pelrath
