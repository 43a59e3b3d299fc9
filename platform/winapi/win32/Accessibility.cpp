// Names for screen readers through the platform's annotation of windows. They are never taken back: the windows end
// with the process.

#include "platform/winapi/Accessibility.h"

#include <initguid.h>
#include <oleacc.h>

#include <memory>

namespace {

class ComApartment {
public:
    ComApartment() noexcept : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ComApartment(const ComApartment &) = delete;
    ComApartment &operator=(const ComApartment &) = delete;
    ~ComApartment() {
        if (entered_) {
            CoUninitialize();
        }
    }

private:
    bool entered_;
};

struct ReleaseObject {
    void operator()(IUnknown *object) const noexcept { object->Release(); }
};

std::unique_ptr<IAccPropServices, ReleaseObject> AnnotationService() {
    void *service = nullptr;
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices, &service);
    return std::unique_ptr<IAccPropServices, ReleaseObject>{static_cast<IAccPropServices *>(service)};
}

} // namespace

void SetAccessibleNames(const std::vector<AccessibleName> &names) {
    const ComApartment apartment;
    const auto service = AnnotationService();
    if (!service) {
        return;
    }
    for (const auto &[window, name] : names) {
        service->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME, name);
    }
}
