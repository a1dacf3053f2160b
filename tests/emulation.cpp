// Is a part of all tests that QEMU emulates. Takes the place of functions of the system's library, so that they can start
// programs, and gives the process its own name.

#include <cerrno>
#include <cstdarg>
#include <vector>

#include <dlfcn.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

template<typename Function>
Function *systems(Function *, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

std::vector<char *> emulated(char *const *arguments)
{
    static const char *const emulator[] = {EMULATOR};
    std::vector<char *> command;
    for (const char *word : emulator)
        command.push_back(const_cast<char *>(word));
    do
        command.push_back(*arguments);
    while (*arguments++);
    return command;
}

__attribute__((constructor)) void takeName()
{
    prctl(PR_SET_NAME, reinterpret_cast<unsigned long>(program_invocation_short_name), 0, 0, 0);
}

}

// The kernel would be asked to run a program for another processor. The toolkit gives the path as the first argument.
extern "C" __attribute__((visibility("default"))) int execve(const char *, char *const *arguments, char *const *environment) noexcept
{
    const std::vector<char *> command = emulated(arguments);
    return systems(execve, "execve")(command[0], command.data(), environment);
}

extern "C" __attribute__((visibility("default"))) int execv(const char *path, char *const *arguments) noexcept
{
    return execve(path, arguments, environ);
}

// QEMU 7.2 can wait for the descriptor of a process, but not make one. The toolkit tries the first, and does without where
// it fails.
extern "C" __attribute__((visibility("default"))) long syscall(long number, ...) noexcept
{
    va_list arguments;
    va_start(arguments, number);
    long values[6];
    for (long &value : values)
        value = va_arg(arguments, long);
    va_end(arguments);
    if (number == SYS_waitid && values[0] == P_PIDFD) {
        errno = ENOSYS;
        return -1;
    }
    return systems(syscall, "syscall")(number, values[0], values[1], values[2], values[3], values[4], values[5]);
}
