#include "platform/posix/desktop_associations.hpp"

#include "platform/posix/file_uri.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/glib_owned.hpp"
#include "platform/runtime_error.hpp"

#include <gio/gdesktopappinfo.h>

#include <cerrno>
#include <chrono>
#include <functional>

#include <sys/wait.h>

namespace pelrath {

namespace {

constexpr std::chrono::seconds startingTime{10}; // what ends later has run

GlibObject<GAppInfo> programFor(const std::string& file) {
    // By the extension alone: an empty file's content is of no kind.
    const std::string name = "file." + std::string{fileExtension(file)};
    const GlibOwned<char> type{g_content_type_guess(name.c_str(), nullptr, 0, nullptr)};
    if (g_content_type_is_unknown(type.get()) != FALSE) return nullptr;
    return GlibObject<GAppInfo>{g_app_info_get_default_for_type(type.get(), FALSE)};
}

std::string executableOf(GAppInfo* program) {
    const char* command = g_app_info_get_commandline(program);
    char** split = nullptr;
    if (command == nullptr || g_shell_parse_argv(command, nullptr, &split, nullptr) == FALSE) return {};
    const GlibOwned<char*> words{split};
    const GlibOwned<char> path{g_find_program_in_path(split[0])};
    return path ? path.get() : "";
}

bool isStartedByMessage(GAppInfo* program) {
    return g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(program), "DBusActivatable") != FALSE;
}

RuntimeError notStarted(const std::string& file, const std::string& reason) {
    return {static_cast<int>(ErrorNumber::FileNotFound), "launchEditor",
            "The image editor cannot be started: " + reason +
                ".\r\n\r\nPlease choose another program for such files in the settings of your desktop, or "
                "open " +
                file + " by hand."};
}

std::string reasonOf(GError& failure) {
    g_dbus_error_strip_remote_error(&failure);
    std::string reason{failure.message};
    if (reason.ends_with('.')) reason.pop_back();
    return reason;
}

// Of the helpers through which programs are started: shells, and one that just hands on what exec() answered.
bool meansNotRun(int exitCode) { return exitCode == 126 || exitCode == 127 || exitCode == 255; }

// Of a program that is sent the message: what became of it.
void awaitAnswer(GAppInfo* program, GList* uris, GError** error) {
    const GlibOwned<GMainContext> events{g_main_context_new()};
    g_main_context_push_thread_default(events.get());
    GlibObject<GAsyncResult> answer;
    const auto take = [](GObject*, GAsyncResult* result, gpointer into) {
        static_cast<GlibObject<GAsyncResult>*>(into)->reset(G_ASYNC_RESULT(g_object_ref(result)));
    };
    g_app_info_launch_uris_async(program, uris, nullptr, nullptr, take, &answer);
    while (!answer) {
        g_main_context_iteration(events.get(), TRUE);
    }
    g_main_context_pop_thread_default(events.get());
    g_app_info_launch_uris_finish(program, answer.get(), error);
}

// The program's exit code; 0 for any other end.
int runToTheEnd(GAppInfo* program, GList* uris, GError** error) {
    const GlibObject<GAppLaunchContext> context{g_app_launch_context_new()};
    // Started "at time 0", long before anything the user did: for window managers that heed it, and programs
    // that pass it on, the focus stays where it is.
    g_app_launch_context_setenv(context.get(), "DESKTOP_STARTUP_ID", "pelrath_TIME0");
    GPid process = 0;
    const auto take = [](GDesktopAppInfo*, GPid started, gpointer into) {
        *static_cast<GPid*>(into) = started;
    };
    const auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_DO_NOT_REAP_CHILD);
    g_desktop_app_info_launch_uris_as_manager(G_DESKTOP_APP_INFO(program), uris, context.get(), flags,
                                              nullptr, nullptr, take, &process, error);
    int status = 0;
    while (process != 0 && ::waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 0;
}

// What to say of a program that does not start, given the reason.
using Refusal = std::function<RuntimeError(const std::string& reason)>;

// Through its desktop entry, as a sandboxed program has no other way to be started.
void startWith(GAppInfo* program, const std::string& file, const Refusal& refusal) {
    const GlibOwned<char> uri{g_filename_to_uri(file.c_str(), nullptr, nullptr)};
    const GlibOwned<GList> uris{g_list_append(nullptr, uri.get())};
    GError* error = nullptr;
    int ending = 0;
    const auto start = std::chrono::steady_clock::now();
    if (isStartedByMessage(program)) {
        awaitAnswer(program, uris.get(), &error);
    } else {
        ending = runToTheEnd(program, uris.get(), &error);
    }
    const GlibOwned<GError> failure{error};
    if (failure) throw refusal(reasonOf(*failure));
    const bool atOnce = std::chrono::steady_clock::now() - start < startingTime;
    if (atOnce && meansNotRun(ending)) {
        throw refusal(executableOf(program) + " does not run (exit code " + std::to_string(ending) +
                      "): it is damaged, or something that it needs is missing");
    }
}

// False where nobody answers to the name of a file manager.
bool askFileManager(const std::vector<std::string>& files) {
    const GlibObject<GDBusConnection> bus{g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr)};
    if (!bus) return false;
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE); // the program outlives its desktop's messages
    GVariantBuilder uris;
    g_variant_builder_init(&uris, G_VARIANT_TYPE("as"));
    for (const std::string& file : files) {
        g_variant_builder_add(&uris, "s", uriOfPath(file).c_str());
    }
    GVariant* answer = g_dbus_connection_call_sync(
        bus.get(), "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", "ShowItems", g_variant_new("(ass)", &uris, ""), nullptr,
        G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    if (answer == nullptr) return false;
    g_variant_unref(answer);
    return true;
}

} // namespace

std::string DesktopAssociations::executableFor(const std::string& file) {
    const GlibObject<GAppInfo> program = programFor(file);
    if (!program) return {};
    std::string executable = executableOf(program.get());
    if (!executable.empty() || !isStartedByMessage(program.get())) return executable;
    const char* entry = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(program.get()));
    return entry == nullptr ? "" : entry;
}

void DesktopAssociations::open(const std::string& file) {
    const auto refusal = [&file](const std::string& reason) { return notStarted(file, reason); };
    const GlibObject<GAppInfo> program = programFor(file);
    if (!program) throw refusal("there is none any more");
    startWith(program.get(), file, refusal);
}

void DesktopAssociations::showInFolder(const std::vector<std::string>& files) {
    if (files.empty() || askFileManager(files)) return;
    const std::string folder{parentFolder(files.front())};
    const auto refusal = [&folder](const std::string& reason) {
        return RuntimeError{static_cast<int>(ErrorNumber::FileNotFound), "showInFolder",
                            "The file manager cannot be started: " + reason +
                                ".\r\n\r\nPlease choose a program for folders in the settings of your "
                                "desktop, or open " +
                                folder + " by hand."};
    };
    const GlibObject<GAppInfo> program{g_app_info_get_default_for_type("inode/directory", FALSE)};
    if (!program) throw refusal("there is none");
    startWith(program.get(), folder, refusal);
}

} // namespace pelrath
