// A folder of a test's own, gone with everything in it at the end of the scope.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace ovrin::testing {

// Its bytes; none where it can't be opened.
inline std::string BytesOf(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("ovrin-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
        path_ = std::filesystem::canonical(path_);
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path &Path() const { return path_; }

    // A file with its folders; a trailing slash makes a folder. Gives its path.
    std::filesystem::path Make(const std::filesystem::path &relative, std::string_view content = {}) const {
        std::filesystem::path entry = path_ / relative;
        std::filesystem::create_directories(entry.parent_path());
        if (entry.has_filename()) {
            std::ofstream(entry, std::ios::binary) << content;
        }
        return entry;
    }

private:
    std::filesystem::path path_;
};

} // namespace ovrin::testing
