#include "examples/editor/Editor.h"

#include "core/recent/RecentProjectStore.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace ovrin {
namespace {

using Options = std::map<std::string, NativeText>;

std::string ToUtf8(const NativeText &text) {
    const std::u8string utf8 = std::filesystem::path(text).u8string();
    return {utf8.begin(), utf8.end()};
}

Options ParseOptions(const std::vector<NativeText> &arguments) {
    Options options;
    for (std::size_t index = 0; index < arguments.size(); index += 2) {
        const std::string name = ToUtf8(arguments[index]);
        if (name != "--project" && name != "--create-project" && name != "--project-name" &&
            name != "--project-template") {
            throw std::runtime_error("Unknown argument: " + name);
        }
        if (index + 1 == arguments.size()) {
            throw std::runtime_error("Nothing follows " + name);
        }
        if (!options.emplace(name, arguments[index + 1]).second) {
            throw std::runtime_error("Given twice: " + name);
        }
    }
    return options;
}

// As many as the launcher shows.
constexpr std::uint64_t recentLimit = 16;

// A project that the list can't take is open all the same.
void Record(const std::filesystem::path &file, const std::string &name) {
    try {
        if (RecentProjectStore::RecordRecentProject(file, name, recentLimit)) {
            return;
        }
    } catch (const std::system_error &error) {
        std::cerr << "OvrinEditor: " << error.what() << '\n';
    }
    std::cerr << "OvrinEditor: Can't record " << ToUtf8(file.native()) << " as a recent project\n";
}

void CreateProject(const Options &options) {
    const std::filesystem::path file = options.at("--create-project");
    if (std::filesystem::exists(file)) {
        throw std::runtime_error("There is a project already: " + ToUtf8(file.native()));
    }
    std::ofstream stream(file, std::ios::binary);
    stream << "name = " << ToUtf8(options.at("--project-name")) << '\n'
           << "template = " << ToUtf8(options.at("--project-template")) << '\n';
    if (!stream.flush()) {
        throw std::runtime_error("Can't write " + ToUtf8(file.native()));
    }
    Record(file, ToUtf8(options.at("--project-name")));
}

void OpenProject(const Options &options) {
    const std::filesystem::path file = options.at("--project");
    if (!std::filesystem::is_regular_file(file)) {
        throw std::runtime_error("There is no project file " + ToUtf8(file.native()));
    }
    Record(file, ToUtf8(file.stem().native()));
}

std::string DoWhatIsAsked(const std::vector<NativeText> &arguments) {
    const Options options = ParseOptions(arguments);
    if (options.size() == 3 && !options.contains("--project")) {
        CreateProject(options);
        return "Created the project.";
    }
    if (options.size() == 1 && options.contains("--project")) {
        OpenProject(options);
        return "Opened the project.";
    }
    throw std::runtime_error("Usage: OvrinEditor.exe --project FILE, or OvrinEditor.exe --create-project FILE "
                             "--project-name NAME --project-template IDENTIFIER");
}

std::string Report(const std::vector<NativeText> &arguments, const NativeText &commandLine) {
    std::ostringstream report;
    for (const NativeText &argument : arguments) {
        report << "Argument: " << ToUtf8(argument) << '\n';
    }
    report << "Command line: " << ToUtf8(commandLine) << '\n';
    return report.str();
}

void Publish(const std::string &report) {
    std::cout << report << std::flush;
    if (const char *log = std::getenv("OVRIN_EDITOR_LOG")) {
        std::ofstream(log, std::ios::binary | std::ios::app) << report;
    }
}

} // namespace

int RunEditor(const std::vector<NativeText> &arguments, const NativeText &commandLine) {
    const std::string report = Report(arguments, commandLine);
    try {
        Publish(report + DoWhatIsAsked(arguments) + '\n');
        return 0;
    } catch (const std::exception &error) {
        std::cerr << "OvrinEditor: " << error.what() << '\n';
        Publish(report + "Failed: " + error.what() + '\n');
        return 1;
    }
}

} // namespace ovrin
