// The fixed table of project templates: what the selector shows and what the editor is told.
#pragma once

#include "platform/text/WideText.h"

#include <array>
#include <cstdint>

namespace ovrin {

struct ProjectTemplate {
    WideTextView label;
    WideTextView identifier;
};

// The order is the order of the popup's rows; a row's number is the value of `selectedTemplate`.
inline constexpr std::array<ProjectTemplate, 4> projectTemplates{{
    {WIDE("Blank Project"), WIDE("blank")},
    {WIDE("FPS Starter"), WIDE("fps")},
    {WIDE("Third Person Starter"), WIDE("third_person")},
    {WIDE("Action Arena Starter"), WIDE("arena")},
}};

// A row below the table means its first row, one above it the last.
[[nodiscard]] std::int32_t ClampTemplateRow(std::int32_t row);
[[nodiscard]] WideTextView GetTemplateLabel(std::int32_t row);
[[nodiscard]] WideTextView GetTemplateIdentifier(std::int32_t row);

} // namespace ovrin
