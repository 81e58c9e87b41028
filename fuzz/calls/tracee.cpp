#include "calls/tracee.hpp"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <system_error>

#if !defined(__linux__) || !defined(__x86_64__)

namespace pelrath::calls {

namespace {
[[noreturn]] void refuse() {
    std::cerr << "System calls can be watched on Linux on x86-64 only.\n";
    std::exit(77);
}
} // namespace

End follow(const Program&, Observer&) { refuse(); }
void requireTracing() { refuse(); }
int countArgument(int) { return -1; }
std::string nameOf(int) { return {}; }
int numberOf(const std::string&) { return -1; }
std::string bytesAt(pid_t, std::uint64_t, std::size_t) { return {}; }
std::string textAt(pid_t, std::uint64_t) { return {}; }
std::string pathOf(pid_t, int) { return {}; }
std::string pathArgument(const Call&, int, int) { return {}; }

} // namespace pelrath::calls

#else

#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/personality.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pelrath::calls {

namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(const char* what) { throw std::system_error{errno, std::generic_category(), what}; }

/// Stops the process's threads at these calls, and lets all others pass; at every call where there are none.
bool stopAt(const std::vector<int>& calls) {
    const auto load = [](std::size_t offset) {
        return sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
    };
    const auto answer = [](unsigned what) { return sock_filter BPF_STMT(BPF_RET | BPF_K, what); };
    std::vector<sock_filter> filter{load(offsetof(seccomp_data, arch)),
                                    BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, AUDIT_ARCH_X86_64, 1, 0),
                                    answer(SECCOMP_RET_ALLOW), load(offsetof(seccomp_data, nr))};
    for (const int call : calls) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call), 0, 1));
        filter.push_back(answer(SECCOMP_RET_TRACE));
    }
    filter.push_back(answer(calls.empty() ? SECCOMP_RET_TRACE : SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

/// In the new process; comes back only when it fails.
void become(const Program& program, int released) {
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    char go = 0;
    if (read(released, &go, 1) != 1) return;
    std::vector<char*> arguments;
    for (const std::string& argument : program.arguments) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    for (const std::string& variable : program.environment) {
        putenv(const_cast<char*>(variable.c_str()));
    }
    if (!program.folder.empty() && chdir(program.folder.c_str()) != 0) return;
    if (program.output >= 0 && (dup2(program.output, 1) < 0 || dup2(program.output, 2) < 0)) return;
    personality(ADDR_NO_RANDOMIZE);
    if (stopAt(program.calls)) execv(arguments[0], arguments.data());
}

struct Thread {
    pid_t process = 0;
    bool inside = false; ///< a call whose end is to be seen
    Fate fate;
    Call call;
};

class Tracing {
public:
    Tracing(const Program& program, Observer& observer)
        : observer_(observer), deadline_(Clock::now() + program.limit) {
        sigemptyset(&childSignal_);
        sigaddset(&childSignal_, SIGCHLD);
        sigprocmask(SIG_BLOCK, &childSignal_, nullptr);
        start(program);
    }
    Tracing(const Tracing&) = delete;
    Tracing& operator=(const Tracing&) = delete;
    ~Tracing() {
        // Only after an exception there is anybody left.
        killAll();
        while (!threads_.empty() && (waitpid(-1, nullptr, __WALL) > 0 || errno == EINTR)) {
        }
    }

    End untilTheEnd() {
        while (!threads_.empty()) {
            int status = 0;
            const pid_t thread = waitpid(-1, &status, __WALL | WNOHANG);
            if (thread > 0) {
                take(thread, status);
            } else if (thread < 0 && errno == ECHILD) {
                threads_.clear();
            } else {
                waitForSignal();
            }
        }
        return end_;
    }

private:
    void start(const Program& program) {
        int release[2];
        if (pipe2(release, O_CLOEXEC) != 0) fail("pipe");
        first_ = fork();
        if (first_ < 0) fail("fork");
        if (first_ == 0) {
            become(program, release[0]);
            _exit(126);
        }
        threads_[first_].process = first_;
        constexpr long options = PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK | PTRACE_O_TRACECLONE |
                                 PTRACE_O_TRACEEXEC | PTRACE_O_TRACESECCOMP | PTRACE_O_TRACESYSGOOD |
                                 PTRACE_O_EXITKILL;
        const bool seized = ptrace(PTRACE_SEIZE, first_, nullptr, options) == 0;
        const bool released = seized && write(release[1], "g", 1) == 1;
        const int error = errno;
        close(release[0]);
        close(release[1]);
        errno = error;
        if (!released) fail("ptrace");
    }

    void waitForSignal() {
        const auto left = std::chrono::duration_cast<std::chrono::nanoseconds>(deadline_ - Clock::now());
        if (left.count() <= 0 && end_.kind != End::Hung) {
            killed_ = true;
            end_.kind = End::Hung;
            killAll();
        }
        const auto wait = std::max<std::int64_t>(left.count(), 50'000'000);
        const timespec time{wait / 1'000'000'000, wait % 1'000'000'000};
        sigtimedwait(&childSignal_, nullptr, &time);
    }

    void killAll() {
        for (const auto& [id, thread] : threads_) {
            kill(thread.process, SIGKILL);
        }
    }
    void killTree() {
        killed_ = true;
        end_.kind = End::Killed;
        killAll();
    }

    void take(pid_t id, int status) {
        if (WIFEXITED(status) || WIFSIGNALED(status)) {
            ended(id, status);
            return;
        }
        Thread& thread = known(id);
        const int event = status >> 16, signal = WSTOPSIG(status);
        if (killed_) {
            kill(thread.process, SIGKILL); // it came to be while the others were killed
            return;
        }
        int delivered = 0;
        if (event == PTRACE_EVENT_SECCOMP) {
            if (!entered(id, thread)) return;
        } else if (event == PTRACE_EVENT_EXEC) {
            running_ = true;
        } else if (signal == (SIGTRAP | 0x80)) {
            if (!left(id, thread)) return;
        } else if (event == 0) {
            delivered = signal;
        }
        // One that was killed meanwhile tells its end later.
        ptrace(thread.inside ? PTRACE_SYSCALL : PTRACE_CONT, id, nullptr, static_cast<long>(delivered));
    }

    void ended(pid_t id, int status) {
        threads_.erase(id);
        if (id != first_ || killed_) return;
        end_ =
            WIFEXITED(status) ? End{End::Exited, WEXITSTATUS(status)} : End{End::Signalled, WTERMSIG(status)};
    }

    /// A new one may tell of itself before its maker does.
    Thread& known(pid_t id) {
        Thread& thread = threads_[id];
        if (thread.process == 0) thread.process = processOf(id);
        return thread;
    }
    static pid_t processOf(pid_t id) {
        std::string lines(4096, '\0');
        const std::string path = "/proc/" + std::to_string(id) + "/status";
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        const ssize_t count = file < 0 ? 0 : read(file, lines.data(), lines.size());
        if (file >= 0) close(file);
        lines.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        const std::size_t at = lines.find("Tgid:");
        return at == std::string::npos ? id : std::atoi(lines.c_str() + at + 5);
    }

    /// False where the tree is killed.
    bool entered(pid_t id, Thread& thread) {
        if (!running_) return true; // not yet the program
        user_regs_struct registers{};
        if (ptrace(PTRACE_GETREGS, id, nullptr, &registers) != 0) return true;
        Call& call = thread.call;
        call = {thread.process,
                id,
                static_cast<int>(registers.orig_rax),
                {registers.rdi, registers.rsi, registers.rdx, registers.r10, registers.r8, registers.r9}};
        thread.fate = observer_.entered(call);
        thread.inside = false;
        switch (thread.fate.kind) {
        case Fate::Untouched:
            break;
        case Fate::Seen:
        case Fate::MadeAndFailed:
            thread.inside = true;
            break;
        case Fate::Answered:
            registers.orig_rax = ~0ULL;
            registers.rax = thread.fate.value;
            ptrace(PTRACE_SETREGS, id, nullptr, &registers);
            break;
        case Fate::Shortened:
            thread.inside = true;
            setCount(id, registers, call.number, std::min(thread.fate.value, countOf(call)));
            break;
        case Fate::Killed:
            killTree();
            return false;
        }
        return true;
    }

    bool left(pid_t id, Thread& thread) {
        user_regs_struct registers{};
        if (ptrace(PTRACE_GETREGS, id, nullptr, &registers) != 0) return true;
        thread.inside = false;
        if (thread.fate.kind == Fate::MadeAndFailed) registers.rax = -thread.fate.value;
        // The caller trusts in the registers that it passes arguments in.
        if (thread.fate.kind == Fate::Shortened) {
            setCount(id, registers, thread.call.number, countOf(thread.call));
        } else if (thread.fate.kind == Fate::MadeAndFailed) {
            ptrace(PTRACE_SETREGS, id, nullptr, &registers);
        }
        thread.call.result = static_cast<std::int64_t>(registers.rax);
        if (observer_.left(thread.call)) return true;
        killTree();
        return false;
    }

    static std::uint64_t countOf(const Call& call) {
        const int argument = countArgument(call.number);
        return argument < 0 ? 0 : call.arguments.at(static_cast<std::size_t>(argument));
    }
    static void setCount(pid_t id, user_regs_struct& registers, int number, std::uint64_t count) {
        switch (countArgument(number)) {
        case 1:
            registers.rsi = count;
            break;
        case 2:
            registers.rdx = count;
            break;
        case 3:
            registers.r10 = count;
            break;
        case 4:
            registers.r8 = count;
            break;
        default:
            throw std::logic_error{nameOf(number) + " cannot be shortened"};
        }
        ptrace(PTRACE_SETREGS, id, nullptr, &registers);
    }

    Observer& observer_;
    Clock::time_point deadline_;
    sigset_t childSignal_{};
    std::map<pid_t, Thread> threads_;
    pid_t first_ = -1;
    bool running_ = false, killed_ = false;
    End end_;
};

const std::map<int, const char*> names{
#define PELRATH_CALL(name)                                                                                   \
    { SYS_##name, #name }
    PELRATH_CALL(read),
    PELRATH_CALL(write),
    PELRATH_CALL(open),
    PELRATH_CALL(close),
    PELRATH_CALL(stat),
    PELRATH_CALL(fstat),
    PELRATH_CALL(lstat),
    PELRATH_CALL(poll),
    PELRATH_CALL(lseek),
    PELRATH_CALL(mmap),
    PELRATH_CALL(mprotect),
    PELRATH_CALL(munmap),
    PELRATH_CALL(brk),
    PELRATH_CALL(rt_sigaction),
    PELRATH_CALL(rt_sigprocmask),
    PELRATH_CALL(ioctl),
    PELRATH_CALL(pread64),
    PELRATH_CALL(pwrite64),
    PELRATH_CALL(readv),
    PELRATH_CALL(writev),
    PELRATH_CALL(access),
    PELRATH_CALL(pipe),
    PELRATH_CALL(dup),
    PELRATH_CALL(dup2),
    PELRATH_CALL(sendfile),
    PELRATH_CALL(socket),
    PELRATH_CALL(connect),
    PELRATH_CALL(clone),
    PELRATH_CALL(fork),
    PELRATH_CALL(vfork),
    PELRATH_CALL(execve),
    PELRATH_CALL(wait4),
    PELRATH_CALL(kill),
    PELRATH_CALL(fcntl),
    PELRATH_CALL(flock),
    PELRATH_CALL(fsync),
    PELRATH_CALL(fdatasync),
    PELRATH_CALL(truncate),
    PELRATH_CALL(ftruncate),
    PELRATH_CALL(getdents64),
    PELRATH_CALL(getcwd),
    PELRATH_CALL(chdir),
    PELRATH_CALL(rename),
    PELRATH_CALL(mkdir),
    PELRATH_CALL(rmdir),
    PELRATH_CALL(creat),
    PELRATH_CALL(link),
    PELRATH_CALL(unlink),
    PELRATH_CALL(symlink),
    PELRATH_CALL(readlink),
    PELRATH_CALL(chmod),
    PELRATH_CALL(fchmod),
    PELRATH_CALL(umask),
    PELRATH_CALL(statfs),
    PELRATH_CALL(fstatfs),
    PELRATH_CALL(sync),
    PELRATH_CALL(waitid),
    PELRATH_CALL(openat),
    PELRATH_CALL(mkdirat),
    PELRATH_CALL(newfstatat),
    PELRATH_CALL(unlinkat),
    PELRATH_CALL(renameat),
    PELRATH_CALL(linkat),
    PELRATH_CALL(symlinkat),
    PELRATH_CALL(readlinkat),
    PELRATH_CALL(fchmodat),
    PELRATH_CALL(faccessat),
    PELRATH_CALL(faccessat2),
    PELRATH_CALL(utimensat),
    PELRATH_CALL(fallocate),
    PELRATH_CALL(pipe2),
    PELRATH_CALL(dup3),
    PELRATH_CALL(pwritev),
    PELRATH_CALL(preadv),
    PELRATH_CALL(renameat2),
    PELRATH_CALL(memfd_create),
    PELRATH_CALL(getrandom),
    PELRATH_CALL(copy_file_range),
    PELRATH_CALL(statx),
    PELRATH_CALL(clone3),
    PELRATH_CALL(close_range),
    PELRATH_CALL(sync_file_range),
    PELRATH_CALL(syncfs),
    PELRATH_CALL(exit_group),
    PELRATH_CALL(futex),
    PELRATH_CALL(eventfd2),
    PELRATH_CALL(mremap),
    PELRATH_CALL(madvise),
    PELRATH_CALL(fadvise64),
    PELRATH_CALL(getuid),
    PELRATH_CALL(geteuid),
    PELRATH_CALL(getpid),
    PELRATH_CALL(gettid),
    PELRATH_CALL(prctl),
    PELRATH_CALL(rseq),
    PELRATH_CALL(exit),
    PELRATH_CALL(set_robust_list),
    PELRATH_CALL(clock_nanosleep),
    PELRATH_CALL(sched_yield),
    PELRATH_CALL(pwritev2),
    PELRATH_CALL(preadv2),
#undef PELRATH_CALL
};

} // namespace

End follow(const Program& program, Observer& observer) { return Tracing{program, observer}.untilTheEnd(); }

void requireTracing() {
    try {
        Observer nothing;
        if (follow({.arguments = {"/bin/true"}, .calls = {SYS_exit_group}}, nothing).well()) return;
    } catch (const std::system_error& error) {
        std::cerr << error.what() << ": ";
    }
    std::cerr << "System calls cannot be watched here.\n";
    std::exit(77);
}

int countArgument(int number) {
    switch (number) {
    case SYS_getrandom:
        return 1;
    case SYS_read:
    case SYS_write:
    case SYS_pread64:
    case SYS_pwrite64:
        return 2;
    case SYS_sendfile:
        return 3;
    case SYS_copy_file_range:
        return 4;
    default:
        return -1;
    }
}

std::string nameOf(int number) {
    const auto found = names.find(number);
    return found == names.end() ? "call " + std::to_string(number) : found->second;
}

int numberOf(const std::string& name) {
    const auto found =
        std::find_if(names.begin(), names.end(), [&](const auto& entry) { return entry.second == name; });
    return found == names.end() ? -1 : found->first;
}

std::string bytesAt(pid_t process, std::uint64_t address, std::size_t count) {
    std::string bytes(count, '\0');
    const iovec here{bytes.data(), count}, there{reinterpret_cast<void*>(address), count};
    const ssize_t got = count == 0 ? 0 : process_vm_readv(process, &here, 1, &there, 1, 0);
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
}

std::string textAt(pid_t process, std::uint64_t address) {
    // Not across a page's end at once: the next page may not be there.
    constexpr std::uint64_t page = 4096;
    std::string text;
    while (text.size() < PATH_MAX) {
        const std::string part = bytesAt(process, address, static_cast<std::size_t>(page - address % page));
        const std::size_t end = part.find('\0');
        text += part.substr(0, end);
        if (part.empty() || end != std::string::npos) break;
        address += part.size();
    }
    return text;
}

std::string pathOf(pid_t process, int descriptor) {
    std::error_code closed;
    const std::string link = "/proc/" + std::to_string(process) + "/fd/" + std::to_string(descriptor);
    return std::filesystem::read_symlink(link, closed).string();
}

std::string pathArgument(const Call& call, int directory, int path) {
    const std::string text = textAt(call.process, call.arguments.at(static_cast<std::size_t>(path)));
    if (text.starts_with('/')) return text;
    const int folder =
        directory < 0 ? AT_FDCWD : static_cast<int>(call.arguments.at(static_cast<std::size_t>(directory)));
    if (folder != AT_FDCWD) return pathOf(call.process, folder) + (text.empty() ? "" : "/" + text);
    std::error_code gone;
    const std::string cwd = "/proc/" + std::to_string(call.process) + "/cwd";
    return std::filesystem::read_symlink(cwd, gone).string() + "/" + text;
}

} // namespace pelrath::calls

#endif
