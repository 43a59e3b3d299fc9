// A settings folder of the test's own, with project files in it and the list of recent ones.
#pragma once

#include "core/logging/Logger.h"
#include "core/recent/RecentProjectStore.h"
#include "platform/text/NarrowPath.h"
#include "tests/support/EnvironmentScope.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

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
        return Replaced(Replaced(BytesOf(File()), folder_.Path().generic_string(), "@"), "\r", "");
    }
    [[nodiscard]] std::string WithFolder(std::string_view text) const {
        return Replaced(std::string(text), "@", folder_.Path().generic_string());
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
    // Saves projects that exist: 1, 2, ...
    Projects SaveProjects(int count) const {
        Projects projects;
        for (int number = 1; number <= count; ++number) {
            const std::string name = std::to_string(number);
            projects.push_back({.path = folder_.Make(name + ".oproject"), .name = name});
        }
        EXPECT_TRUE(RecentProjectStore::SaveRecentProjects(projects));
        return projects;
    }
    // The one line that is logged while the list can't be saved, without its time.
    static std::string FailureToSave(const Projects &projects) {
        std::vector<LogRecord> records;
        const std::uint64_t before = Logger::Instance().GetRecordsAfter(~std::uint64_t{0}, records);
        EXPECT_FALSE(RecentProjectStore::SaveRecentProjects(projects));
        Logger::Instance().GetRecordsAfter(before, records);
        return records.size() == 1 ? FormatRecordLine(records[0]).substr(sizeof("14:03:59")) : "not one line";
    }

    TemporaryFolder folder_;

private:
    static std::string Replaced(std::string text, std::string_view from, std::string_view to) {
        for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
            text.replace(at, from.size(), to);
        }
        return text;
    }

    EnvironmentScope settings_{"OVRIN_USER_SETTINGS_DIR", WideFromPath(folder_.Path())};
};

} // namespace ovrin::testing
