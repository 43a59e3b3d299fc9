// Apartments, the memory that goes from callee to caller, and the classes of objects. Not here: marshalling, other
// kinds of apartments, classes of other programs.
#include "platform/winapi/qt/FileDialogs.h"

#include <QCoreApplication>
#include <QThread>

#include <cassert>
#include <cstdlib>

namespace {

thread_local unsigned apartmentEntries = 0;

// The toolkit's windows belong to the thread that runs it.
bool IsToolkitThread() {
    return QCoreApplication::instance() != nullptr &&
           QThread::currentThread() == QCoreApplication::instance()->thread();
}

bool IsKnownClass(REFCLSID clsid) {
    return clsid == CLSID_FileOpenDialog || clsid == CLSID_FileSaveDialog;
}

} // namespace

HRESULT CoInitializeEx(void *reserved, DWORD flags) {
    const bool known = (flags & ~COINIT_DISABLE_OLE1DDE) == COINIT_APARTMENTTHREADED;
    if (reserved != nullptr) {
        return E_INVALIDARG;
    }
    if (!known) {
        return apartmentEntries == 0 ? E_INVALIDARG : RPC_E_CHANGED_MODE;
    }
    return ++apartmentEntries == 1 ? S_OK : S_FALSE;
}

void CoUninitialize() {
    assert(apartmentEntries > 0 && "left more often than entered");
    if (apartmentEntries > 0) {
        --apartmentEntries;
    }
}

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown *outer, DWORD context, REFIID iid, void **object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (apartmentEntries == 0) {
        return CO_E_NOTINITIALIZED;
    }
    if (!IsKnownClass(clsid) || (context & CLSCTX_INPROC_SERVER) == 0) {
        return REGDB_E_CLASSNOTREG;
    }
    if (outer != nullptr) {
        return CLASS_E_NOAGGREGATION;
    }
    if (!IsToolkitThread()) {
        return RPC_E_WRONG_THREAD;
    }
    return clsid == CLSID_FileOpenDialog ? ovrin::layer::CreateOpenDialog(iid, object)
                                         : ovrin::layer::CreateSaveDialog(iid, object);
}

void *CoTaskMemAlloc(std::size_t size) {
    return std::malloc(size);
}

void CoTaskMemFree(void *memory) {
    std::free(memory);
}
