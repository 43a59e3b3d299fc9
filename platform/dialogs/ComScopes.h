// What COM hands out, each given back at the end of its scope: an apartment, a reference, a text. For one thread.
#pragma once

#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <memory>

namespace ovrin {

// The calling thread's apartment, where the result isn't negative.
class ComApartmentScope {
public:
    ComApartmentScope() noexcept
        : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE)), owned_(result_ >= 0) {}
    ComApartmentScope(const ComApartmentScope &) = delete;
    ComApartmentScope &operator=(const ComApartmentScope &) = delete;
    ~ComApartmentScope() {
        if (owned_) {
            CoUninitialize();
        }
    }

    [[nodiscard]] HRESULT Result() const { return result_; }
    [[nodiscard]] bool IsOwned() const { return owned_; }

private:
    HRESULT result_;
    bool owned_;
};

struct ComRelease {
    template<typename Interface>
    void operator()(Interface *object) const noexcept {
        object->Release();
    }
};
template<typename Interface>
using ComPointer = std::unique_ptr<Interface, ComRelease>;

struct ComTextRelease {
    void operator()(WideChar *text) const noexcept { CoTaskMemFree(text); }
};
using ComText = std::unique_ptr<WideChar, ComTextRelease>;

} // namespace ovrin
