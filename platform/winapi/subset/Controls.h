// The three control classes "EDIT", "BUTTON" and "LISTBOX", owner draw, and the chain of control procedures.
#pragma once

#include "platform/winapi/subset/Types.h"

constexpr DWORD ES_AUTOHSCROLL = 0x0080;

constexpr DWORD BS_OWNERDRAW = 0x000B;
constexpr DWORD BS_NOTIFY = 0x4000;

constexpr DWORD LBS_NOTIFY = 0x0001;
constexpr DWORD LBS_OWNERDRAWFIXED = 0x0010;
constexpr DWORD LBS_NOINTEGRALHEIGHT = 0x0100;

constexpr WORD BN_CLICKED = 0;
constexpr WORD BN_DOUBLECLICKED = 5;
constexpr WORD BN_SETFOCUS = 6;
constexpr WORD BN_KILLFOCUS = 7;

constexpr WORD EN_SETFOCUS = 0x0100;
constexpr WORD EN_KILLFOCUS = 0x0200;
constexpr WORD EN_CHANGE = 0x0300;
constexpr WORD EN_UPDATE = 0x0400;

constexpr WORD LBN_SELCHANGE = 1;
constexpr WORD LBN_DBLCLK = 2;
constexpr WORD LBN_SETFOCUS = 4;
constexpr WORD LBN_KILLFOCUS = 5;

constexpr UINT EM_SETCUEBANNER = 0x1501;

constexpr UINT LB_ADDSTRING = 0x0180;
constexpr UINT LB_RESETCONTENT = 0x0184;
constexpr UINT LB_SETCURSEL = 0x0186;
constexpr UINT LB_GETCURSEL = 0x0188;
constexpr UINT LB_GETCOUNT = 0x018B;
constexpr UINT LB_SETITEMHEIGHT = 0x01A0;
constexpr UINT LB_GETITEMHEIGHT = 0x01A1;
constexpr LRESULT LB_ERR = -1;

constexpr UINT ODT_LISTBOX = 2;
constexpr UINT ODT_BUTTON = 4;
constexpr UINT ODA_DRAWENTIRE = 1;
constexpr UINT ODS_SELECTED = 0x0001;
constexpr UINT ODS_DISABLED = 0x0004;
constexpr UINT ODS_FOCUS = 0x0010;

struct MEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
};

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};

constexpr DWORD ICC_STANDARD_CLASSES = 0x4000;

struct INITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
};

BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX *classes);

// A procedure in front of the control's own; the last one installed is asked first. One entry for each pair of
// procedure and id; installing it again replaces its reference data.
using SUBCLASSPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
BOOL SetWindowSubclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data);
LRESULT DefSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The frame is the desktop's: answers E_NOTIMPL.
constexpr DWORD DWMWA_USE_IMMERSIVE_DARK_MODE = 20;
constexpr DWORD DWMWA_WINDOW_CORNER_PREFERENCE = 33;
constexpr int DWMWCP_ROUND = 2;
HRESULT DwmSetWindowAttribute(HWND window, DWORD attribute, const void *value, DWORD size);
