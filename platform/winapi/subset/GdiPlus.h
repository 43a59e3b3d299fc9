// The flat drawing library: start-up and shutdown.
#pragma once

#include "platform/winapi/subset/Types.h"

namespace Gdiplus {

enum Status { Ok = 0, GenericError = 1, InvalidParameter = 2 };

struct GdiplusStartupInput {
    std::uint32_t GdiplusVersion = 1;
    void *DebugEventCallback = nullptr;
    BOOL SuppressBackgroundThread = FALSE;
    BOOL SuppressExternalCodecs = FALSE;
};

struct GdiplusStartupOutput;

Status GdiplusStartup(ULONG_PTR *token, const GdiplusStartupInput *input, GdiplusStartupOutput *output);
void GdiplusShutdown(ULONG_PTR token);

} // namespace Gdiplus
