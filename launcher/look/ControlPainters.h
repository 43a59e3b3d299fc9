// The faces of the owner-drawn controls. Each painter draws its whole item; a null item does nothing.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

void PaintActionButton(const LauncherState &state, const DRAWITEMSTRUCT *item);
void PaintRecentRow(const LauncherState &state, const DRAWITEMSTRUCT *item);
void PaintTemplateRow(const LauncherState &state, const DRAWITEMSTRUCT *item);
void PaintTemplateFace(const LauncherState &state, const DRAWITEMSTRUCT *item);

} // namespace ovrin
