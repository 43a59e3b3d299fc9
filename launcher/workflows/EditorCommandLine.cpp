#include "launcher/workflows/EditorCommandLine.h"

namespace ovrin {

WideText QuoteArgument(WideTextView text) {
    constexpr WideChar quote = WIDE('"');
    constexpr WideChar backslash = WIDE('\\');
    WideText quoted(1, quote);
    std::size_t pendingBackslashes = 0;
    for (const WideChar unit : text) {
        if (unit == backslash) {
            ++pendingBackslashes;
            continue;
        }
        // Only in front of a quote do backslashes mean anything but themselves.
        quoted.append(unit == quote ? 2 * pendingBackslashes + 1 : pendingBackslashes, backslash);
        quoted.push_back(unit);
        pendingBackslashes = 0;
    }
    quoted.append(2 * pendingBackslashes, backslash);
    quoted.push_back(quote);
    return quoted;
}

WideText BuildEditorCommandLine(WideTextView editorPath, const std::vector<WideText> &arguments) {
    WideText commandLine = QuoteArgument(editorPath);
    for (const WideText &argument : arguments) {
        commandLine += WIDE(' ');
        commandLine += QuoteArgument(argument);
    }
    return commandLine;
}

} // namespace ovrin
