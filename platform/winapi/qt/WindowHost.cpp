// Handles of windows and the way of a message through a window's procedures. Not here: posting, other threads, removal
// of a procedure.
#include "platform/winapi/qt/WindowHost.h"

#include "platform/winapi/qt/HandleTable.h"
#include "platform/winapi/subset/Controls.h"

#include <QWidget>

#include <algorithm>
#include <cassert>

namespace ovrin::layer {

namespace {

// The table holds the address only: the toolkit owns the widget.
struct Entry {
    WindowHost *host;
};

HandleTable<HWND, Entry> &Windows() {
    static HandleTable<HWND, Entry> table;
    return table;
}

} // namespace

WindowHost::WindowHost(const Facts &facts)
    : handle_(Windows().Add(std::make_unique<Entry>(Entry{this}))), facts_(facts) {}

WindowHost::~WindowHost() {
    GiveUpHandle();
}

void WindowHost::GiveUpHandle() {
    if (handle_ != nullptr) {
        Windows().Remove(handle_);
        handle_ = nullptr;
    }
}

LRESULT WindowHost::Send(UINT message, WPARAM wParam, LPARAM lParam) {
    if (handle_ == nullptr) {
        return 0;
    }
    positions_.push_back(0);
    const LRESULT result = CallNext(message, wParam, lParam);
    positions_.pop_back();
    return result;
}

LRESULT WindowHost::CallNext(UINT message, WPARAM wParam, LPARAM lParam) {
    assert(!positions_.empty() && "only a procedure of the chain may ask for the next one");
    const std::size_t position = positions_.back();
    if (position >= subclasses_.size()) {
        return Procedure(message, wParam, lParam);
    }
    const Subclass next = subclasses_[position];
    positions_.back() = position + 1;
    const LRESULT result = next.procedure(handle_, message, wParam, lParam, next.id, next.data);
    positions_.back() = position;
    return result;
}

void WindowHost::InstallProcedure(SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) {
    const auto same = [&](const Subclass &entry) { return entry.procedure == procedure && entry.id == id; };
    const auto found = std::find_if(subclasses_.begin(), subclasses_.end(), same);
    if (found != subclasses_.end()) {
        found->data = data;
    } else {
        subclasses_.insert(subclasses_.begin(), {procedure, id, data});
    }
}

void WindowHost::Notify(WORD notification) {
    const auto id = static_cast<DWORD_PTR>(facts_.id);
    SendMessageW(facts_.parent, WM_COMMAND, MAKEWPARAM(id, notification), reinterpret_cast<LPARAM>(handle_));
}

WindowHost *HostOf(HWND window) {
    const Entry *entry = Windows().Find(window);
    return entry == nullptr ? nullptr : entry->host;
}

WindowHost *HostOf(const QWidget *widget) {
    const auto hosts = AllHosts();
    const auto found =
        std::find_if(hosts.begin(), hosts.end(), [&](WindowHost *host) { return &host->Widget() == widget; });
    return found == hosts.end() ? nullptr : *found;
}

std::vector<WindowHost *> AllHosts() {
    std::vector<WindowHost *> hosts;
    Windows().ForEach([&](const Entry &entry) { hosts.push_back(entry.host); });
    return hosts;
}

} // namespace ovrin::layer

using ovrin::layer::HostOf;

BOOL SetWindowSubclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    host->InstallProcedure(procedure, id, data);
    return TRUE;
}

LRESULT DefSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto *host = HostOf(window);
    return host == nullptr ? 0 : host->CallNext(message, wParam, lParam);
}

LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto *host = HostOf(window);
    return host == nullptr ? 0 : host->Send(message, wParam, lParam);
}

LONG_PTR SetWindowLongPtrW(HWND window, [[maybe_unused]] int index, LONG_PTR value) {
    assert(index == GWLP_USERDATA);
    auto *host = HostOf(window);
    return host == nullptr ? 0 : std::exchange(host->userData, value);
}

LONG_PTR GetWindowLongPtrW(HWND window, int index) {
    assert(index == GWLP_USERDATA || index == GWL_STYLE);
    const auto *host = HostOf(window);
    if (host == nullptr) {
        return 0;
    }
    return index == GWLP_USERDATA ? host->userData : static_cast<LONG_PTR>(host->facts().style);
}

BOOL IsWindow(HWND window) {
    return HostOf(window) != nullptr ? TRUE : FALSE;
}

int GetDlgCtrlID(HWND window) {
    const auto *host = HostOf(window);
    return host == nullptr ? 0 : host->facts().id;
}

HWND GetDlgItem(HWND window, int id) {
    for (const auto *host : ovrin::layer::AllHosts()) {
        if (host->facts().parent == window && host->facts().id == id) {
            return host->handle();
        }
    }
    return nullptr;
}

int GetWindowTextLengthW(HWND window) {
    const auto *host = HostOf(window);
    return host == nullptr ? 0 : static_cast<int>(host->Text().size());
}

int GetWindowTextW(HWND window, LPWSTR buffer, int size) {
    const auto *host = HostOf(window);
    if (host == nullptr || size < 1) {
        return 0;
    }
    const QString text = host->Text().left(size - 1);
    std::copy_n(reinterpret_cast<const char16_t *>(text.utf16()), text.size() + 1, buffer);
    return static_cast<int>(text.size());
}

BOOL SetWindowTextW(HWND window, LPCWSTR text) {
    auto *host = HostOf(window);
    if (host == nullptr) {
        return FALSE;
    }
    host->SetText(text == nullptr ? QString() : QString::fromUtf16(text));
    return TRUE;
}
