// The flat drawing library: start-up and shutdown, and smooth shapes on a device context.
#pragma once

#include "platform/winapi/subset/Types.h"

namespace Gdiplus {

using REAL = float;
using ARGB = DWORD;

enum Status { Ok = 0, GenericError = 1, InvalidParameter = 2 };
using GpStatus = Status;

enum SmoothingMode { SmoothingModeAntiAlias = 4 };
enum InterpolationMode { InterpolationModeHighQualityBicubic = 7 };
enum CompositingQuality { CompositingQualityHighQuality = 2 };
enum FillMode { FillModeAlternate = 0 };
enum Unit { UnitWorld = 0 };
using GpFillMode = FillMode;
using GpUnit = Unit;

struct GdiplusStartupInput {
    std::uint32_t GdiplusVersion = 1;
    void *DebugEventCallback = nullptr;
    BOOL SuppressBackgroundThread = FALSE;
    BOOL SuppressExternalCodecs = FALSE;
};

struct GdiplusStartupOutput;

Status GdiplusStartup(ULONG_PTR *token, const GdiplusStartupInput *input, GdiplusStartupOutput *output);
void GdiplusShutdown(ULONG_PTR token);

// Pointers to these are keys into a table of the layer, as all handles are.
class GpGraphics {};
class GpPath {};
class GpPen {};
class GpBrush {};
class GpSolidFill : public GpBrush {};

// Coordinates are pixel centres, except that a filled rectangle covers whole pixels. What an operation gives out is the
// caller's, to be deleted by the operation for it.
namespace DllExports {

GpStatus GdipCreateFromHDC(HDC dc, GpGraphics **graphics);
GpStatus GdipDeleteGraphics(GpGraphics *graphics);
GpStatus GdipSetSmoothingMode(GpGraphics *graphics, SmoothingMode mode);
GpStatus GdipSetInterpolationMode(GpGraphics *graphics, InterpolationMode mode);
GpStatus GdipSetCompositingQuality(GpGraphics *graphics, CompositingQuality quality);

GpStatus GdipCreatePath(GpFillMode mode, GpPath **path);
GpStatus GdipDeletePath(GpPath *path);
// Of the ellipse in a box; degrees from the right, clockwise. A line joins it to the figure that is open.
GpStatus GdipAddPathArc(GpPath *path, REAL x, REAL y, REAL width, REAL height, REAL startAngle, REAL sweepAngle);
GpStatus GdipClosePathFigure(GpPath *path);

GpStatus GdipCreateSolidFill(ARGB colour, GpSolidFill **brush);
GpStatus GdipDeleteBrush(GpBrush *brush);
GpStatus GdipCreatePen1(ARGB colour, REAL width, GpUnit unit, GpPen **pen);
GpStatus GdipDeletePen(GpPen *pen);

GpStatus GdipFillPath(GpGraphics *graphics, GpBrush *brush, GpPath *path);
GpStatus GdipDrawPath(GpGraphics *graphics, GpPen *pen, GpPath *path);
GpStatus GdipFillRectangle(GpGraphics *graphics, GpBrush *brush, REAL x, REAL y, REAL width, REAL height);

} // namespace DllExports

} // namespace Gdiplus
