// Each file in transcripts/ is a script and what must come of it: "#" opens a comment, ">" a step, and the lines below
// a step tell what the launcher's procedures saw of it. The platforms must agree to the line. Where the test bed on
// Windows differs from what Windows does, a heading that "~" opens follows the step, with what is seen there instead.
#include "tests/desktop/ScriptPlayer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace ovrin::desktop {

namespace {

const std::filesystem::path transcripts{OVRIN_DESKTOP_TESTS "/transcripts"};

// A heading (a comment, a step or a difference) and the lines below it.
struct Block {
    std::string heading;
    std::string lines;
};

std::vector<Block> ReadBlocks(const std::filesystem::path &path) {
    std::vector<Block> blocks;
    std::ifstream file{path, std::ios::binary};
    for (std::string line; std::getline(file, line);) {
        const bool isHeading = line.find_first_of("#>~") == 0;
        std::string &text = isHeading ? blocks.emplace_back().heading : blocks.back().lines;
        text += line + "\n";
    }
    return blocks;
}

std::string TextOf(const std::vector<Block> &blocks) {
    std::string text;
    for (const Block &block : blocks) {
        text += block.heading + block.lines;
    }
    return text;
}

std::vector<Block> PlayTranscript(std::vector<Block> blocks) {
    const Sandbox sandbox;
    EXPECT_EQ(0, RunLauncher([&](LauncherRun &run) {
                  ScriptPlayer player{run, sandbox};
                  for (std::size_t index = 0; index < blocks.size(); ++index) {
                      if (blocks[index].heading.starts_with(">")) {
                          const std::string step = blocks[index].heading.substr(2, blocks[index].heading.size() - 3);
                          const bool differs = index + 1 < blocks.size() && blocks[index + 1].heading.starts_with("~");
                          blocks[index + (differs && IsWine() ? 1 : 0)].lines = player.Play(step);
                      }
                  }
              }));
    return blocks;
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
    const std::string played = TextOf(PlayTranscript(transcript));
    EXPECT_EQ(played, TextOf(transcript));
    if (HasFailure() && std::getenv("OVRIN_WRITE_TRANSCRIPTS") != nullptr) {
        std::ofstream{file, std::ios::binary} << played;
    }
}

INSTANTIATE_TEST_SUITE_P(Desktop, Transcript, ::testing::ValuesIn(TranscriptNames()),
                         [](const auto &parameter) { return parameter.param; });

} // namespace

} // namespace ovrin::desktop
