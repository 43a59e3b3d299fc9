// The layer's own messages.
#include "platform/winapi/WinApi.h"

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(FormatMessage, KnowsEveryCodeOfTheLayerAndEndsAsThePlatformDoes) {
    for (const HRESULT code : {E_NOTIMPL, E_NOINTERFACE, E_POINTER, E_FAIL, E_UNEXPECTED, RPC_E_CHANGED_MODE,
                               CLASS_E_NOAGGREGATION, REGDB_E_CLASSNOTREG, CO_E_NOTINITIALIZED, E_OUTOFMEMORY,
                               E_INVALIDARG, static_cast<HRESULT>(0x80070459), static_cast<HRESULT>(0x800704C7)}) {
        char16_t *buffer = nullptr;
        const DWORD length =
            FormatMessageW(0x1300, nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<LPWSTR>(&buffer), 0, nullptr);
        ASSERT_NE(buffer, nullptr) << std::hex << code;
        const std::u16string text(buffer);
        EXPECT_EQ(LocalFree(buffer), nullptr);
        EXPECT_EQ(text.size(), length);
        EXPECT_TRUE(text.ends_with(u".\r\n"));
    }
}

} // namespace
