// Process, threads, environment and text conversion: what needs no toolkit.
#pragma once

#include "platform/winapi/subset/Types.h"

#include <cstdarg>

constexpr UINT CP_UTF8 = 65001;
constexpr DWORD MB_ERR_INVALID_CHARS = 8;
constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x100;
constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;

struct STARTUPINFOW {
    DWORD cb;
    LPWSTR lpReserved;
    LPWSTR lpDesktop;
    LPWSTR lpTitle;
    DWORD dwX;
    DWORD dwY;
    DWORD dwXSize;
    DWORD dwYSize;
    DWORD dwXCountChars;
    DWORD dwYCountChars;
    DWORD dwFillAttribute;
    DWORD dwFlags;
    WORD wShowWindow;
    WORD cbReserved2;
    BYTE *lpReserved2;
    HANDLE hStdInput;
    HANDLE hStdOutput;
    HANDLE hStdError;
};

struct PROCESS_INFORMATION {
    HANDLE hProcess;
    HANDLE hThread;
    DWORD dwProcessId;
    DWORD dwThreadId;
};

struct SECURITY_ATTRIBUTES;

// Lengths of input must be given (no -1), input is CP_UTF8 / UTF-16. 0 on failure, also for empty input.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char *text, int textLength, LPWSTR buffer, int bufferLength);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int textLength, char *buffer, int bufferLength,
                        const char *defaultChar, BOOL *usedDefaultChar);

// Only the system's own messages, in English, with all three flags: `buffer` is then the address of a pointer, which
// takes a text to be released with LocalFree. Gives its length without the terminator, 0 for an unknown code.
DWORD FormatMessageW(DWORD flags, const void *source, DWORD message, DWORD language, LPWSTR buffer, DWORD size,
                     va_list *arguments);
// Always null.
HLOCAL LocalFree(HLOCAL memory);

// Only the running program's own path (no module). 0 where that path isn't UTF-8.
DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);

// 0 also for a value that isn't UTF-8, since it could only be handed on changed.
DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);
BOOL SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value);

// Splits `commandLine` by the platform's convention and starts `applicationName` detached: a session of its own, only
// the standard three descriptors. Attributes, environment, inheritance and flags must be null or 0.
BOOL CreateProcessW(LPCWSTR applicationName, LPWSTR commandLine, SECURITY_ATTRIBUTES *processAttributes,
                    SECURITY_ATTRIBUTES *threadAttributes, BOOL inheritHandles, DWORD creationFlags, void *environment,
                    LPCWSTR currentDirectory, STARTUPINFOW *startupInfo, PROCESS_INFORMATION *processInformation);
BOOL CloseHandle(HANDLE handle);

// Stands for the calling thread, here only as an argument of SetThreadDescription.
HANDLE GetCurrentThread();
// The system's own id of the calling thread.
DWORD GetCurrentThreadId();
// Cut to the 15 bytes that the system keeps, at a character.
HRESULT SetThreadDescription(HANDLE thread, LPCWSTR description);
// Always FALSE: there is no such reserve.
BOOL SetThreadStackGuarantee(ULONG *size);

// Tells the processor that the caller spins.
inline void YieldProcessor() {
#if defined(__x86_64__)
    __builtin_ia32_pause();
#endif
}
