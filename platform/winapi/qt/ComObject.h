// What every object with counted references has: its count, the way from one of its interfaces to another, and its
// share in the number of objects that are alive.
#pragma once

#include "platform/winapi/subset/Com.h"

#include <atomic>
#include <cstddef>

namespace ovrin::layer {

// The form in which a system error comes back as a result.
constexpr HRESULT ResultOf(DWORD systemError) {
    constexpr DWORD systemErrors = 0x80070000;
    return static_cast<HRESULT>(systemErrors | systemError);
}

class LiveObject {
public:
    LiveObject() { ++count_; }
    LiveObject(const LiveObject &) = delete;
    LiveObject &operator=(const LiveObject &) = delete;
    ~LiveObject() { --count_; }

    [[nodiscard]] static std::size_t Count() { return count_; }

private:
    static inline std::atomic<std::size_t> count_ = 0;
};

// Made with `new`, with one reference that belongs to the maker.
template<typename Interface>
class ComObject : public Interface {
public:
    ComObject() = default;
    ComObject(const ComObject &) = delete;
    ComObject &operator=(const ComObject &) = delete;
    virtual ~ComObject() = default;

    HRESULT QueryInterface(REFIID iid, void **object) final {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (iid != IID_IUnknown && !Supports(iid)) {
            return E_NOINTERFACE;
        }
        *object = static_cast<Interface *>(this); // one line of interfaces: all have this address
        AddRef();
        return S_OK;
    }

    ULONG AddRef() final { return ++references_; }

    ULONG Release() final {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

private:
    // IUnknown left out.
    [[nodiscard]] virtual bool Supports(REFIID iid) const = 0;

    std::atomic<ULONG> references_ = 1;
    LiveObject alive_;
};

// Hands an object that was just made to a caller who asks for `iid`.
inline HRESULT GiveAs(IUnknown *made, REFIID iid, void **object) {
    const HRESULT result = made->QueryInterface(iid, object);
    made->Release();
    return result;
}

} // namespace ovrin::layer
