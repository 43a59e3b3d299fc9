// Start-up and shutdown of the flat drawing library. The toolkit needs neither: the calls are only held to their order.
// Not here: version 2 and later, the library's background thread under the caller's control.
#include "platform/winapi/subset/GdiPlus.h"

#include <cassert>
#include <set>

namespace {

// Tokens of start-ups without their shutdown; a token is used once.
std::set<ULONG_PTR> &OpenTokens() {
    static std::set<ULONG_PTR> tokens;
    return tokens;
}

} // namespace

namespace Gdiplus {

Status GdiplusStartup(ULONG_PTR *token, const GdiplusStartupInput *input, GdiplusStartupOutput *) {
    static ULONG_PTR last = 0;
    if (token == nullptr || input == nullptr || input->GdiplusVersion != 1 || input->SuppressBackgroundThread) {
        return InvalidParameter;
    }
    *token = *OpenTokens().insert(++last).first;
    return Ok;
}

void GdiplusShutdown(ULONG_PTR token) {
    [[maybe_unused]] const bool open = OpenTokens().erase(token) == 1;
    assert(open && "shutdown without its start-up");
}

} // namespace Gdiplus
