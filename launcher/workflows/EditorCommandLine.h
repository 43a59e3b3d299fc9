// The text of the editor's command line.
#pragma once

#include "platform/text/WideText.h"

#include <vector>

namespace ovrin {

// In double quotes, always, such that the platform's splitting of a command line gives back `text` unchanged.
[[nodiscard]] WideText QuoteArgument(WideTextView text);

// The editor's path and the arguments, each quoted, one blank between them.
[[nodiscard]] WideText BuildEditorCommandLine(WideTextView editorPath, const std::vector<WideText> &arguments);

} // namespace ovrin
