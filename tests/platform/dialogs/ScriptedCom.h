// COM and the file dialogs from a script, in the place of the system's own: every call is written down in order, and
// one of them goes wrong where a test says so.
#pragma once

#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <string>
#include <vector>

namespace ovrin::testing {

struct ComScript {
    std::string at{};      // the call that goes wrong, by its first words; empty: none
    HRESULT result = S_OK; // what it returns
    bool gives = false;    // it gives what is asked for all the same, else null or no items
    bool raises = false;   // std::bad_alloc
    FILEOPENDIALOGOPTIONS options = 0;
    std::uintptr_t activeWindow = 7;
    std::uintptr_t foregroundWindow = 9;
    std::vector<WideText> chosen{WIDE("/games/one"), WIDE("/games/tw\u00F6"), WIDE("/games/three")};
};

void PlayCom(ComScript script);

// Since the last PlayCom: calls that may go wrong as "Name argument", numbers in hex, and in small letters what can't:
// among those "free file types", when the memory given to SetFileTypes goes.
[[nodiscard]] const std::vector<std::string> &ComLines();

} // namespace ovrin::testing
