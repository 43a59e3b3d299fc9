#include "launcher/workflows/ProjectTemplates.h"

#include <algorithm>

namespace ovrin {

namespace {

const ProjectTemplate &TemplateAt(std::int32_t row) {
    return projectTemplates[static_cast<std::size_t>(ClampTemplateRow(row))];
}

} // namespace

std::int32_t ClampTemplateRow(std::int32_t row) {
    return std::clamp(row, 0, static_cast<std::int32_t>(projectTemplates.size()) - 1);
}

WideTextView GetTemplateLabel(std::int32_t row) {
    return TemplateAt(row).label;
}

WideTextView GetTemplateIdentifier(std::int32_t row) {
    return TemplateAt(row).identifier;
}

} // namespace ovrin
