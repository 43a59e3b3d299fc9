#include "core/logging/SessionFiles.h"

#include "core/logging/LogClock.h"
#include "core/logging/LogPlatform.h"
#include "core/paths/FileStatus.h"
#include "core/paths/PathForm.h"
#include "platform/text/NarrowPath.h"

#include <algorithm>

namespace ovrin {

namespace {

constexpr bool IsSafe(char byte) {
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           byte == '-' || byte == '_';
}

void WriteTo(std::FILE *file, std::string_view text) {
    if (file != nullptr) {
        static_cast<void>(std::fwrite(text.data(), 1, text.size(), file));
    }
}

void FlushFile(std::FILE *file) {
    if (file != nullptr) {
        static_cast<void>(std::fflush(file));
    }
}

} // namespace

std::string SanitizeFilePrefix(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return !IsSafe(byte); }, '_');
    return text.empty() ? std::string(defaultLogTitle) : text;
}

void SessionFiles::Open(const std::string &title, const std::filesystem::path &directory) {
    try {
        OpenFiles(title, directory);
        Write(Banner(title));
        Flush();
    } catch (...) {
        Close();
        sessionPath_.clear();
        latestPath_.clear();
    }
}

void SessionFiles::Close() {
    session_.reset();
    latest_.reset();
}

void SessionFiles::Write(std::string_view text) {
    WriteTo(session_.get(), text);
    WriteTo(latest_.get(), text);
}

void SessionFiles::Flush() {
    FlushFile(session_.get());
    FlushFile(latest_.get());
}

void SessionFiles::OpenFiles(const std::string &title, const std::filesystem::path &directory) {
    const std::string stem = SanitizeFilePrefix(title);
    CreateDirectoryChain(directory);
    sessionPath_ = PathForm::Join(directory, stem + "_" + FormatFileTimestamp() + ".log");
    latestPath_ = PathForm::Join(directory, stem + ".latest.log");
    session_.reset(OpenLogFile(sessionPath_, LogFileMode::Append));
    latest_.reset(OpenLogFile(latestPath_, LogFileMode::Truncate));
}

std::string SessionFiles::Banner(std::string_view title) const {
    std::string banner;
    banner.append("========== ").append(title).append(" Log ==========\nSession Log: ");
    banner.append(NarrowFromPathLenient(sessionPath_));
    banner.append("\nLatest Log: ").append(NarrowFromPathLenient(latestPath_));
    banner.append("\n====================================\n");
    return banner;
}

} // namespace ovrin
