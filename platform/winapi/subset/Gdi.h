// Device contexts, brushes, pens, fonts, bitmaps, plain shapes and text.
#pragma once

#include "platform/winapi/subset/Types.h"

constexpr int LF_FACESIZE = 32;
constexpr BYTE CLEARTYPE_QUALITY = 5;
constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;
constexpr int BLACK_BRUSH = 4;
constexpr int PS_SOLID = 0;
constexpr DWORD SRCCOPY = 0x00CC0020;

constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_PATH_ELLIPSIS = 0x4000;
constexpr UINT DT_END_ELLIPSIS = 0x8000;

struct LOGFONTW {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

// number * numerator / denominator, rounded half away from zero; -1 on overflow or a denominator of 0.
int MulDiv(int number, int numerator, int denominator);

HFONT CreateFontIndirectW(const LOGFONTW *font);
HBRUSH CreateSolidBrush(COLORREF colour);
HPEN CreatePen(int style, int width, COLORREF colour);
HGDIOBJ GetStockObject(int index);
BOOL DeleteObject(HGDIOBJ object);

// Only inside WM_PAINT.
HDC BeginPaint(HWND window, PAINTSTRUCT *paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT *paint);

HDC CreateCompatibleDC(HDC dc);
BOOL DeleteDC(HDC dc);
HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD operation);

int SetBkMode(HDC dc, int mode);
COLORREF SetTextColor(HDC dc, COLORREF colour);
COLORREF SetBkColor(HDC dc, COLORREF colour);
int FillRect(HDC dc, const RECT *rect, HBRUSH brush);
BOOL Polyline(HDC dc, const POINT *points, int count);
// A frame of dots that invert what is there: the same once more takes it away.
BOOL DrawFocusRect(HDC dc, const RECT *rect);

// `length` must be given (no -1). An ampersand is drawn as it stands.
int DrawTextW(HDC dc, LPCWSTR text, int length, RECT *rect, UINT format);
