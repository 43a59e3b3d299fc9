#include "tests/desktop/Picture.h"

#include "launcher/look/Drawing.h"
#include "launcher/look/ScenePainter.h"
#include "tests/desktop/DesktopDriver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace ovrin::desktop {

namespace {

// Numbers with one character, whichever, behind each.
template<typename... Number>
void Read(std::istream &words, Number &...numbers) {
    ((words >> numbers).ignore(), ...);
}

RECT ReadRect(std::istream &words) {
    RECT rect{};
    Read(words, rect.left, rect.top, rect.right, rect.bottom);
    return rect;
}

} // namespace

// The context must come out as it went in.
void Picture::Paint(SIZE size, const std::function<void(HDC)> &paint) {
    size_ = size;
    pixels_ = Painted(size, [&](HDC dc) {
        const UniqueFont font = CreateUiFont(
            run_.window, {.points = 9, .weight = 400, .face = WIDE("A face name that is longer than allowed")});
        const UniquePen pen{CreatePen(PS_SOLID, 2, 0)};
        const SelectionScope selectedFont{dc, font.get()}, selectedPen{dc, pen.get()};
        SetTextColor(dc, 0x123456);
        paint(dc);
        EXPECT_EQ(SetBkMode(dc, TRANSPARENT), OPAQUE);
        EXPECT_EQ(SetTextColor(dc, 0), 0x123456U);
        EXPECT_EQ(SelectObject(dc, font.get()), font.get());
        EXPECT_EQ(SelectObject(dc, pen.get()), pen.get());
    });
}

void Picture::PaintScene() {
    RECT client{};
    GetClientRect(run_.window, &client);
    Paint({client.right, client.bottom}, [this](HDC dc) { ovrin::PaintScene(run_.window, *run_.state, dc); });
    firstScene_ = firstScene_.empty() ? pixels_ : firstScene_;
}

void Picture::PaintItem(std::istringstream words) {
    const std::map<std::string, UINT> states = {
        {"selected", ODS_SELECTED}, {"focused", ODS_FOCUS}, {"disabled", ODS_DISABLED}};
    std::string word;
    words >> word;
    const KnownControl &control = ControlNamed(word);
    DRAWITEMSTRUCT item{};
    item.CtlType = control.kind == Kind::List ? ODT_LISTBOX : ODT_BUTTON;
    item.CtlID = static_cast<UINT>(control.id);
    item.hwndItem = GetDlgItem(run_.window, control.id);
    Read(words, item.itemID);
    item.rcItem = ReadRect(words);
    while (words >> word) {
        item.itemState |= states.at(word);
    }
    Paint({item.rcItem.right + 1, item.rcItem.bottom + 1}, [&](HDC dc) {
        item.hDC = dc;
        EXPECT_EQ(SendMessageW(run_.window, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item)), 1);
    });
}

std::string Picture::Runs(std::istringstream words, LONG step) const {
    LONG x = 0, y = 0, length = 0;
    Read(words, x, y, length);
    std::vector<COLORREF> line;
    for (LONG at = y * size_.cx + x; length > 0; --length, at += step) {
        line.push_back(pixels_.at(static_cast<std::size_t>(at)));
    }
    std::ostringstream text;
    for (auto run = line.begin(), end = run; run != line.end(); run = end) {
        end = std::find_if(run, line.end(), [&](COLORREF colour) { return colour != *run; });
        text << (run == line.begin() ? "" : ", ") << std::dec << end - run << " of " << std::hex << *run;
    }
    return text.str();
}

std::string Picture::Area(std::istringstream words) const {
    const RECT area = ReadRect(words);
    std::set<COLORREF> colours;
    for (LONG at = area.top * size_.cx; at < area.bottom * size_.cx; ++at) {
        if (at % size_.cx >= area.left && at % size_.cx < area.right) {
            colours.insert(pixels_.at(static_cast<std::size_t>(at)));
        }
    }
    std::ostringstream text;
    text << "all of " << std::hex << *colours.begin();
    return colours.size() == 1 ? text.str() : "several colours";
}

std::string Picture::Changed() const {
    RECT changed{size_.cx, size_.cy, 0, 0};
    for (std::size_t at = 0; at < pixels_.size(); ++at) {
        if (pixels_[at] != firstScene_.at(at)) {
            const LONG x = static_cast<LONG>(at) % size_.cx, y = static_cast<LONG>(at) / size_.cx;
            changed = {std::min(changed.left, x), std::min(changed.top, y), std::max(changed.right, x + 1),
                       std::max(changed.bottom, y + 1)};
        }
    }
    std::ostringstream text;
    text << "changed " << changed.left << ',' << changed.top << ',' << changed.right << ',' << changed.bottom;
    return text.str();
}

} // namespace ovrin::desktop
