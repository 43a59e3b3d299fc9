// What lies behind a window handle: the widget, its chain of procedures, and the facts that the platform keeps with a
// window. The toolkit owns the widgets; a handle dies at once with DestroyWindow, its widget some time later.
#pragma once

#include "platform/winapi/subset/Controls.h"
#include "platform/winapi/subset/Gdi.h"
#include "platform/winapi/subset/Window.h"

#include <QString>

#include <cstddef>
#include <vector>

class QPainter;
class QWidget;

namespace ovrin::layer {

class WindowHost {
public:
    struct Facts {
        HWND parent = nullptr;
        int id = 0;
        DWORD style = 0;
    };

    explicit WindowHost(const Facts &facts);
    WindowHost(const WindowHost &) = delete;
    WindowHost &operator=(const WindowHost &) = delete;
    virtual ~WindowHost();

    [[nodiscard]] virtual QWidget &Widget() = 0;
    [[nodiscard]] virtual QString Text() const = 0;
    virtual void SetText(const QString &text) = 0;

    // Null once the window has been destroyed, while its widget still waits for its end.
    [[nodiscard]] HWND handle() const { return handle_; }
    [[nodiscard]] const Facts &facts() const { return facts_; }

    // Through the whole chain, the procedure installed last first. 0 once the window has been destroyed.
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam);
    // From a procedure of the chain to the one behind it.
    LRESULT CallNext(UINT message, WPARAM wParam, LPARAM lParam);
    void InstallProcedure(SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data);

    // A WM_COMMAND at the parent.
    void Notify(WORD notification);

    void GiveUpHandle();

    LONG_PTR userData = 0;
    QPainter *activePainter = nullptr; // while the widget is painted
    bool tracksLeave = false;          // one WM_MOUSELEAVE has been asked for

protected:
    // The end of the chain: the class's own procedure.
    virtual LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) = 0;

private:
    struct Subclass {
        SUBCLASSPROC procedure;
        UINT_PTR id;
        DWORD_PTR data;
    };

    HWND handle_;
    Facts facts_;
    std::vector<Subclass> subclasses_;   // the first is asked first
    std::vector<std::size_t> positions_; // in the chain, one for each message under way
};

// Null for a handle that is null or stale.
[[nodiscard]] WindowHost *HostOf(HWND window);
// Null for a widget that belongs to no window of ours.
[[nodiscard]] WindowHost *HostOf(const QWidget *widget);

// All windows that exist, in the order of their creation.
[[nodiscard]] std::vector<WindowHost *> AllHosts();

} // namespace ovrin::layer
