// Starting a program that lives on by itself, and the two handles that come of it. The program's path must be absolute,
// and a working folder given. Not here: inherited handles, other environments, creation flags, waiting, exit codes.
#include "platform/winapi/subset/System.h"

#include "platform/winapi/posix/CommandLine.h"
#include "platform/winapi/posix/NativeText.h"

#include <cassert>
#include <csignal>
#include <cstdlib>
#include <mutex>
#include <set>
#include <spawn.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

constexpr int firstPrivateDescriptor = 3;

// Open handles by number; a number is used once, so that a stale handle closes nothing.
class ProcessHandles {
public:
    HANDLE Open() {
        const std::scoped_lock lock(mutex_);
        open_.insert(++last_);
        return reinterpret_cast<HANDLE>(last_); // NOLINT(performance-no-int-to-ptr): a key, not an address
    }

    bool Close(HANDLE handle) {
        const std::scoped_lock lock(mutex_);
        return open_.erase(reinterpret_cast<ULONG_PTR>(handle)) == 1;
    }

private:
    std::mutex mutex_;
    std::set<ULONG_PTR> open_; // guarded by mutex_
    ULONG_PTR last_ = 0;       // guarded by mutex_
};

ProcessHandles &Handles() {
    static ProcessHandles table;
    return table;
}

// An argument vector in the form that the system wants.
class ArgumentVector {
public:
    // False for an argument that can't be handed on unchanged.
    bool Append(std::u16string_view argument) {
        auto native = ovrin::NativeFromWide(argument);
        if (!native) {
            return false;
        }
        arguments_.push_back(std::move(*native));
        return true;
    }

    [[nodiscard]] std::vector<char *> Pointers() {
        std::vector<char *> pointers;
        for (std::string &argument : arguments_) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        return pointers;
    }

private:
    std::vector<std::string> arguments_;
};

// What the child does before it becomes the program: moves to its folder, gives up all private descriptors.
class ChildActions {
public:
    explicit ChildActions(const std::string &folder) {
        valid_ = posix_spawn_file_actions_init(&actions_) == 0 &&
                 posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str()) == 0 &&
                 posix_spawn_file_actions_addclosefrom_np(&actions_, firstPrivateDescriptor) == 0;
    }
    ChildActions(const ChildActions &) = delete;
    ChildActions &operator=(const ChildActions &) = delete;
    ~ChildActions() { posix_spawn_file_actions_destroy(&actions_); }

    [[nodiscard]] const posix_spawn_file_actions_t *Get() const { return valid_ ? &actions_ : nullptr; }

private:
    posix_spawn_file_actions_t actions_{};
    bool valid_ = false;
};

// A session of its own, with none of this program's signal settings.
class ChildAttributes {
public:
    ChildAttributes() {
        sigset_t all;
        sigset_t none;
        sigfillset(&all);
        sigemptyset(&none);
        constexpr short flags = POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK;
        valid_ = posix_spawnattr_init(&attributes_) == 0 && posix_spawnattr_setsigdefault(&attributes_, &all) == 0 &&
                 posix_spawnattr_setsigmask(&attributes_, &none) == 0 &&
                 posix_spawnattr_setflags(&attributes_, flags) == 0;
    }
    ChildAttributes(const ChildAttributes &) = delete;
    ChildAttributes &operator=(const ChildAttributes &) = delete;
    ~ChildAttributes() { posix_spawnattr_destroy(&attributes_); }

    [[nodiscard]] const posix_spawnattr_t *Get() const { return valid_ ? &attributes_ : nullptr; }

private:
    posix_spawnattr_t attributes_{};
    bool valid_ = false;
};

// 0 where the program doesn't start; a failure of its image is told too, not only one of the new process.
pid_t Spawn(const std::string &program, const std::string &folder, ArgumentVector &arguments) {
    const ChildActions actions(folder);
    const ChildAttributes attributes;
    if (actions.Get() == nullptr || attributes.Get() == nullptr) {
        return 0;
    }
    pid_t process = 0;
    const int error =
        posix_spawn(&process, program.c_str(), actions.Get(), attributes.Get(), arguments.Pointers().data(), environ);
    return error == 0 ? process : 0;
}

bool SplitInto(ArgumentVector &arguments, LPCWSTR commandLine) {
    for (const std::u16string &element : ovrin::SplitCommandLine(commandLine)) {
        if (!arguments.Append(element)) {
            return false;
        }
    }
    return true;
}

} // namespace

BOOL CreateProcessW(LPCWSTR applicationName, LPWSTR commandLine,
                    [[maybe_unused]] SECURITY_ATTRIBUTES *processAttributes,
                    [[maybe_unused]] SECURITY_ATTRIBUTES *threadAttributes, [[maybe_unused]] BOOL inheritHandles,
                    [[maybe_unused]] DWORD creationFlags, [[maybe_unused]] void *environment, LPCWSTR currentDirectory,
                    [[maybe_unused]] STARTUPINFOW *startupInfo, PROCESS_INFORMATION *processInformation) {
    assert(processAttributes == nullptr && threadAttributes == nullptr && inheritHandles == FALSE);
    assert(creationFlags == 0 && environment == nullptr);
    assert(startupInfo != nullptr && startupInfo->cb == sizeof(STARTUPINFOW));
    const auto program = ovrin::NativeFromWide(applicationName);
    const auto folder = ovrin::NativeFromWide(currentDirectory);
    ArgumentVector arguments;
    if (!program || !folder || !SplitInto(arguments, commandLine)) {
        return FALSE;
    }
    const pid_t process = Spawn(*program, *folder, arguments);
    if (process == 0) {
        return FALSE;
    }
    const auto id = static_cast<DWORD>(process);
    *processInformation = {Handles().Open(), Handles().Open(), id, id};
    return TRUE;
}

BOOL CloseHandle(HANDLE handle) {
    const bool closed = Handles().Close(handle);
    assert(closed);
    return closed ? TRUE : FALSE;
}
