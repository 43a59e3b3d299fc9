#include "platform/text/TextConversion.h"
#include "tests/support/RunProbe.h"

#include <algorithm>

namespace ovrin::testing {

namespace {

// What the lines of the latest file say behind the banner.
std::vector<std::string> MessagesIn(const std::filesystem::path &folder) {
    std::ifstream file(folder / "probe.latest.log", std::ios::binary);
    std::string line;
    while (std::getline(file, line) && line.find_first_not_of('=') != std::string::npos) {
    }
    std::vector<std::string> messages;
    while (std::getline(file, line)) {
        messages.push_back(line.substr(line.rfind("] ") + 2));
    }
    return messages;
}

std::vector<std::string> Numbers() {
    std::vector<std::string> numbers(1000);
    std::generate(numbers.begin(), numbers.end(), [number = 0]() mutable { return std::to_string(number++); });
    return numbers;
}

TEST(ProcessExit, WritesEveryRecordOfARunningWorker) {
    struct Case {
        WideText way;
        std::vector<std::string> lastMessages;
    };
    const Case cases[] = {
        {WIDE("return"), {}},
        {WIDE("exit"), {}},
        {WIDE("static objects"), {"before the logger's end"}},
    };
    for (const Case &each : cases) {
        const TemporaryFolder folder;
        PROCESS_INFORMATION process{};
        ASSERT_TRUE(StartProgram(OVRIN_LOGGING_PROBE, folder.Path(), {each.way, WideFromPath(folder.Path())}, process));
        EXPECT_EQ(AwaitEnd(process), 0);
        std::vector<std::string> expected = Numbers();
        expected.insert(expected.end(), each.lastMessages.begin(), each.lastMessages.end());
        EXPECT_EQ(MessagesIn(folder.Path()), expected) << WideToUtf8(each.way);
    }
}

TEST(ProcessExit, InsideASinkDoesNotHang) {
    const TemporaryFolder folder;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(StartProgram(OVRIN_LOGGING_PROBE, folder.Path(), {WIDE("exit in a sink"), WideFromPath(folder.Path())},
                             process));
    EXPECT_EQ(AwaitEnd(process), 3);
}

} // namespace

} // namespace ovrin::testing
