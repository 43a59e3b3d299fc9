// COM and the file dialogs from a script, in the place of the system's own: every call is written down in order, and
// one of them fails, gives nothing or raises where a test says so.
#pragma once

#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <string>
#include <vector>

namespace ovrin::testing {

struct ComScript {
    const char *at = "";       // the call that goes wrong, by its first words; empty: none
    HRESULT result = S_OK;     // what it returns
    bool givesNothing = false; // it gives null, or no items
    bool givesAnyway = false;  // it gives its object although it fails
    bool raises = false;       // std::bad_alloc
    FILEOPENDIALOGOPTIONS setOptions = 0;
    int activeWindow = 7;
    int foregroundWindow = 9;
    std::vector<WideText> chosen{WIDE("/games/one")};
};

using Calls = std::vector<std::string>;

void PlayCom(ComScript script);

// Since the last PlayCom. Among the calls stands "free file types": the memory given to SetFileTypes has gone.
[[nodiscard]] const Calls &ComCalls();

} // namespace ovrin::testing
