// A settings folder of the test's own, with project files in it and the list of recent ones.
#pragma once

#include "core/logging/Logger.h"
#include "core/recent/RecentProjectStore.h"
#include "platform/text/NarrowPath.h"
#include "tests/support/EnvironmentScope.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <iterator>

namespace ovrin::testing {

class RecentList : public ::testing::Test {
protected:
    using Projects = std::vector<RecentProject>;
    using Texts = std::vector<std::string>;

    [[nodiscard]] std::filesystem::path At(const std::filesystem::path &relative) const {
        return (folder_.Path() / relative).make_preferred();
    }
    [[nodiscard]] static std::filesystem::path File() { return RecentProjectStore::GetRecentProjectsPath(); }
    // "@" stands for the folder, in slashes.
    void Write(std::string_view text) const { folder_.Make("recent_projects.cfg", WithFolder(text)); }
    // The file with "@" for the folder, and with single line feeds.
    [[nodiscard]] std::string Read() const {
        std::ifstream file(File(), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        return Replaced(Replaced(text, folder_.Path().generic_string(), "@"), "\r", "");
    }
    [[nodiscard]] std::string WithFolder(std::string_view text) const {
        return Replaced(text, "@", folder_.Path().generic_string());
    }
    static Texts NamesOf(const Projects &projects) {
        Texts names;
        for (const RecentProject &project : projects) {
            names.push_back(project.name);
        }
        return names;
    }
    [[nodiscard]] static Texts Load(std::uint64_t limit = 0) {
        return NamesOf(RecentProjectStore::LoadRecentProjects(limit));
    }
    // Projects that exist: 1, 2, ...
    Projects MakeProjects(int count) const {
        Projects projects;
        for (int number = 1; number <= count; ++number) {
            const std::string name = std::to_string(number);
            projects.push_back({.path = folder_.Make(name + ".oproject"), .name = name});
        }
        return projects;
    }
    // The messages that were logged meanwhile.
    template<typename Call>
    static Texts Logged(const Call &call) {
        std::vector<LogRecord> records;
        const std::uint64_t before = Logger::Instance().GetRecordsAfter(0, records);
        records.clear();
        call();
        Logger::Instance().GetRecordsAfter(before, records);
        Texts messages;
        for (const LogRecord &record : records) {
            EXPECT_EQ(record.level, LogLevel::Warning);
            EXPECT_EQ(record.category, LogCategory::General);
            messages.push_back(record.message);
        }
        return messages;
    }

    TemporaryFolder folder_;

private:
    static std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
        std::string result;
        for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
            result.append(text.substr(0, at)).append(to);
            text.remove_prefix(at + from.size());
        }
        return result.append(text);
    }

    EnvironmentScope settings_{"OVRIN_USER_SETTINGS_DIR", WideFromPath(folder_.Path())};
};

} // namespace ovrin::testing
