// What the launcher's painters draw, on a bitmap that scripts can look at. Colours are told as 0xBBGGRR.
#pragma once

#include "tests/desktop/Recorder.h"

#include <sstream>

namespace ovrin::desktop {

class Picture {
public:
    explicit Picture(const LauncherRun &run) : run_(run) {}

    void PaintScene();
    // "recent 1 0,1,400,73 selected focused": the control, the row, the rectangle, and the states, on a bitmap with a
    // black pixel more at the right and below.
    void PaintItem(std::istringstream words);

    // "800,0 820": how many pixels of which colour follow each other from that point on, `step` pixels apart.
    [[nodiscard]] std::string Runs(std::istringstream words, LONG step) const;
    [[nodiscard]] std::string Across(const std::string &words) const { return Runs(std::istringstream{words}, 1); }
    [[nodiscard]] std::string Down(const std::string &words) const { return Runs(std::istringstream{words}, size_.cx); }
    // "10,10,20,20": the one colour of the rectangle, or that it has several.
    [[nodiscard]] std::string Area(std::istringstream words) const;
    // The rectangle of what differs from the script's first scene.
    [[nodiscard]] std::string Changed() const;

private:
    void Paint(SIZE size, const std::function<void(HDC)> &paint);

    const LauncherRun &run_;
    SIZE size_{};
    std::vector<COLORREF> pixels_;
    std::vector<COLORREF> firstScene_;
};

} // namespace ovrin::desktop
