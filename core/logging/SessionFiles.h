// The two files of a logging session: one of its own, named by prefix and local time, and the latest one, which every
// session with that prefix begins anew. No lock of its own.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace ovrin {

constexpr std::string_view defaultLogTitle = "OvrinEngine";

// Every byte but ASCII letters, digits, "-" and "_" becomes "_"; an empty text becomes the default title.
[[nodiscard]] std::string SanitizeFilePrefix(std::string text);

class SessionFiles {
public:
    // Makes the directory with its parents, opens both files there and writes the banner to them. A file that can't be
    // opened is left out; where the directory or the names can't be made, both paths are empty. Raises nothing else
    // than for want of memory.
    void Open(const std::string &title, const std::filesystem::path &directory);
    // The paths stay.
    void Close();

    // At least one of the two is open.
    [[nodiscard]] bool IsOpen() const { return session_ != nullptr || latest_ != nullptr; }
    [[nodiscard]] const std::filesystem::path &SessionPath() const { return sessionPath_; }

    // One write call to each open file, the session file first. Failures are not looked at.
    void Write(std::string_view text);
    void Flush();

private:
    struct Closer {
        void operator()(std::FILE *file) const { static_cast<void>(std::fclose(file)); }
    };
    using File = std::unique_ptr<std::FILE, Closer>;

    void OpenFiles(const std::string &title, const std::filesystem::path &directory);
    [[nodiscard]] std::string Banner(std::string_view title) const;

    File session_;
    File latest_;
    std::filesystem::path sessionPath_;
    std::filesystem::path latestPath_;
};

} // namespace ovrin
