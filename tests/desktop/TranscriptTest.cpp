// Each file in transcripts/ is a script and what must come of it: "#" opens a comment, ">" a step, and the lines below
// a step tell what the launcher's procedures saw of it. The platforms must agree to the line. Where the test bed on
// Windows differs from what Windows does, WineDifferences.txt holds, in the same form and under the transcript's name
// in brackets, what is seen there instead.
#include "tests/desktop/DesktopDriver.h"
#include "tests/desktop/ScriptPlayer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>

namespace ovrin::desktop {

namespace {

const std::filesystem::path transcripts{OVRIN_DESKTOP_TESTS "/transcripts"};
const std::filesystem::path wineDifferences{OVRIN_DESKTOP_TESTS "/WineDifferences.txt"};

// A heading (a comment, a step or a transcript's name) and the lines below it.
struct Block {
    std::string heading;
    std::vector<std::string> lines;

    [[nodiscard]] bool IsStep() const { return heading.starts_with(">"); }
    [[nodiscard]] std::string Step() const { return heading.substr(2); }
};

std::vector<Block> ReadBlocks(const std::filesystem::path &path) {
    std::vector<Block> blocks;
    std::ifstream file{path, std::ios::binary};
    for (std::string line; std::getline(file, line);) {
        if (line.find_first_of("#>[") == 0) {
            blocks.push_back({line, {}});
        } else {
            blocks.back().lines.push_back(line);
        }
    }
    return blocks;
}

std::string TextOf(const std::vector<Block> &blocks) {
    std::string text;
    for (const Block &block : blocks) {
        text += block.heading + "\n";
        for (const std::string &line : block.lines) {
            text += line + "\n";
        }
    }
    return text;
}

// The creation is told only where a script asks for it.
void ForgetCreation(const LauncherRun &run) {
    MoveMouse(run.window, {10, 10});
    static_cast<void>(run.recorder.TakeLines());
}

std::vector<Block> PlayTranscript(std::vector<Block> blocks) {
    const Sandbox sandbox;
    RunLauncher([&](const LauncherRun &run) {
        ScriptPlayer player{run, sandbox};
        bool first = true;
        for (Block &block : blocks) {
            if (block.IsStep()) {
                if (std::exchange(first, false) && block.Step() != "start") {
                    ForgetCreation(run);
                }
                block.lines = player.Play(block.Step());
            }
        }
    });
    return blocks;
}

std::vector<Block> ExpectedHere(const std::string &name, std::vector<Block> transcript) {
    std::map<std::string, std::vector<std::string>> differences;
    std::string section;
    for (const Block &block : IsWine() ? ReadBlocks(wineDifferences) : std::vector<Block>{}) {
        if (block.heading.starts_with("[")) {
            section = block.heading;
        } else if (block.IsStep() && section == "[" + name + "]") {
            differences[block.heading] = block.lines;
        }
    }
    for (Block &block : transcript) {
        if (const auto found = differences.find(block.heading); found != differences.end()) {
            block.lines = found->second;
        }
    }
    return transcript;
}

std::vector<std::string> TranscriptNames() {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator{transcripts}) {
        names.push_back(entry.path().stem().string());
    }
    return names;
}

class Transcript : public ::testing::TestWithParam<std::string> {};

// With OVRIN_WRITE_TRANSCRIPTS set the file is written anew, for reading, and the test fails.
TEST_P(Transcript, IsSeenLineByLine) {
    const std::filesystem::path file = transcripts / (GetParam() + ".txt");
    const std::vector<Block> transcript = ReadBlocks(file);
    const std::vector<Block> played = PlayTranscript(transcript);
    EXPECT_EQ(TextOf(played), TextOf(ExpectedHere(GetParam(), transcript)));
    if (HasFailure() && std::getenv("OVRIN_WRITE_TRANSCRIPTS") != nullptr) {
        std::ofstream{file, std::ios::binary} << TextOf(played);
    }
}

INSTANTIATE_TEST_SUITE_P(Desktop, Transcript, ::testing::ValuesIn(TranscriptNames()),
                         [](const auto &parameter) { return parameter.param; });

} // namespace

} // namespace ovrin::desktop
