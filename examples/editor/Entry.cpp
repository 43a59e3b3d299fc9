// The process entry of the stand-in editor, and where each platform keeps the command line.
#include "examples/editor/Editor.h"

#ifdef _WIN32

#include <windows.h>

int wmain(int count, wchar_t **values) {
    return ovrin::RunEditor({values + 1, values + count}, GetCommandLineW());
}

#else

#include "platform/winapi/posix/SessionVariables.h"

#include <iomanip>
#include <sstream>

namespace {

// There is no line here, only a list: this one shows it in quotes.
std::string QuotedLine(const std::vector<std::string> &arguments) {
    std::ostringstream line;
    for (const std::string &argument : arguments) {
        line << (line.tellp() == 0 ? "" : " ") << std::quoted(argument);
    }
    return line.str();
}

} // namespace

int main(int count, char **values) {
    ovrin::SupplySessionVariables();
    const std::vector<std::string> line(values, values + count);
    return ovrin::RunEditor({line.begin() + 1, line.end()}, QuotedLine(line));
}

#endif
