// Basic types and opaque handles, with the widths that the platform gives them in a 64-bit process.
#pragma once

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK

using BOOL = int;
using UINT = unsigned int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using SHORT = std::int16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using HRESULT = std::int32_t;
using ATOM = WORD;
using COLORREF = DWORD;
using WCHAR = char16_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using LPWSTR = WCHAR *;
using LPCWSTR = const WCHAR *;
using LPCSTR = const char *;

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
constexpr HRESULT E_UNEXPECTED = static_cast<HRESULT>(0x8000FFFF);
constexpr HRESULT RPC_E_CHANGED_MODE = static_cast<HRESULT>(0x80010106);
constexpr HRESULT RPC_E_WRONG_THREAD = static_cast<HRESULT>(0x8001010E);
constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110);
constexpr HRESULT REGDB_E_CLASSNOTREG = static_cast<HRESULT>(0x80040154);
constexpr HRESULT CO_E_NOTINITIALIZED = static_cast<HRESULT>(0x800401F0);
constexpr HRESULT E_OUTOFMEMORY = static_cast<HRESULT>(0x8007000E);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057);

// A handle is a key into a table of the layer, never the address of an object; a key is used once.
// NOLINTBEGIN(bugprone-macro-parentheses): a name that is declared takes none
#define OVRIN_DECLARE_HANDLE(name)                                                                                     \
    struct name##__;                                                                                                   \
    using name = name##__ *
// NOLINTEND(bugprone-macro-parentheses)

using HANDLE = void *;
using HGDIOBJ = void *;
using HLOCAL = void *;
OVRIN_DECLARE_HANDLE(HWND);
OVRIN_DECLARE_HANDLE(HINSTANCE);
OVRIN_DECLARE_HANDLE(HMENU);
OVRIN_DECLARE_HANDLE(HICON);
OVRIN_DECLARE_HANDLE(HDC);
OVRIN_DECLARE_HANDLE(HBRUSH);
OVRIN_DECLARE_HANDLE(HPEN);
OVRIN_DECLARE_HANDLE(HFONT);
OVRIN_DECLARE_HANDLE(HBITMAP);
OVRIN_DECLARE_HANDLE(HRGN);
using HMODULE = HINSTANCE;
using HCURSOR = HICON;

#undef OVRIN_DECLARE_HANDLE

struct POINT {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

constexpr WORD LOWORD(DWORD_PTR value) {
    return static_cast<WORD>(value & 0xFFFFU);
}
constexpr WORD HIWORD(DWORD_PTR value) {
    return static_cast<WORD>((value >> 16U) & 0xFFFFU);
}
constexpr WPARAM MAKEWPARAM(DWORD_PTR low, DWORD_PTR high) {
    return (low & 0xFFFFU) | ((high & 0xFFFFU) << 16U);
}
constexpr LPARAM MAKELPARAM(DWORD_PTR low, DWORD_PTR high) {
    return static_cast<LPARAM>(MAKEWPARAM(low, high));
}
// A small number in the place of a name.
inline LPCWSTR MAKEINTRESOURCEW(WORD number) {
    return reinterpret_cast<LPCWSTR>(static_cast<UINT_PTR>(number)); // NOLINT(performance-no-int-to-ptr): the idiom
}
inline LPCSTR MAKEINTRESOURCEA(WORD number) {
    return reinterpret_cast<LPCSTR>(static_cast<UINT_PTR>(number)); // NOLINT(performance-no-int-to-ptr): the idiom
}
