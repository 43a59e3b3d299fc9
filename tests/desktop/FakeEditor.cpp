// Stands beside the desktop tests as the editor: adds a line with what it was given, elements in square brackets, to
// the file that OVRIN_TEST_EDITOR_CALLS names.
#include <cstdlib>
#include <fstream>
#include <string>

int main(int argc, char **argv) {
    const char *calls = std::getenv("OVRIN_TEST_EDITOR_CALLS");
    if (calls == nullptr) {
        return 1;
    }
    std::string line;
    for (int index = 1; index < argc; ++index) {
        line += std::string{"["} + argv[index] + "]";
    }
    std::ofstream{calls, std::ios::app | std::ios::binary} << line + "\n";
    return 0;
}
