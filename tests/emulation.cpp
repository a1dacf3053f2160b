// Is a part of all tests that QEMU emulates. Takes the place of functions of the system's library, so that they can start
// programs, and gives the process its own name.

#include <cerrno>
#include <cstdarg>
#include <cstring>
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

// Libraries to be loaded first (LD_PRELOAD) are the program's, and QEMU itself cannot load them: it hands them on.
char *takePreloads(std::vector<char *> *environment)
{
    for (auto it = environment->begin(); *it; ++it) {
        char *const variable = *it;
        if (std::strncmp(variable, "LD_PRELOAD=", 11) == 0) {
            environment->erase(it);
            return variable;
        }
    }
    return nullptr;
}

std::vector<char *> copied(char *const *words)
{
    std::vector<char *> copy;
    do
        copy.push_back(*words);
    while (*words++);
    return copy;
}

std::vector<char *> emulated(char *const *arguments, char *preloads)
{
    static const char *const emulator[] = {EMULATOR};
    std::vector<char *> command;
    for (const char *word : emulator)
        command.push_back(const_cast<char *>(word));
    if (preloads) {
        command.push_back(const_cast<char *>("-E"));
        command.push_back(preloads);
    }
    const std::vector<char *> own = copied(arguments);
    command.insert(command.end(), own.begin(), own.end());
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
    std::vector<char *> own = copied(environment);
    const std::vector<char *> command = emulated(arguments, takePreloads(&own));
    return systems(execve, "execve")(command[0], command.data(), own.data());
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
