// Whatever the arguments hold, quoting and splitting give them back; and any text can be split.
#include "launcher/workflows/EditorCommandLine.h"
#include "platform/winapi/posix/CommandLine.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr char16_t boundary = u'\0'; // no command line can hold it

std::vector<std::u16string> SplitAtBoundaries(std::u16string_view text) {
    std::vector<std::u16string> pieces(1);
    for (const char16_t unit : text) {
        if (unit == boundary) {
            pieces.emplace_back();
        } else {
            pieces.back().push_back(unit);
        }
    }
    return pieces;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::u16string text(size / sizeof(char16_t), u'\0');
    if (!text.empty()) {
        std::memcpy(text.data(), data, text.size() * sizeof(char16_t));
    }
    static_cast<void>(ovrin::SplitCommandLine(text));
    const auto pieces = SplitAtBoundaries(text);
    const auto commandLine = ovrin::BuildEditorCommandLine(pieces[0], {pieces.begin() + 1, pieces.end()});
    if (ovrin::SplitCommandLine(commandLine) != pieces) {
        std::abort();
    }
    return 0;
}
