// One open file, byte by byte, as the platform gives it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace ovrin {

// An operation that succeeds leaves `error` as it was.
class OpenFile {
public:
    // For reading and writing; made where it is missing, and changed in nothing. Nothing for what isn't an ordinary
    // file.
    [[nodiscard]] static std::optional<OpenFile> Open(const std::filesystem::path &path);
    OpenFile(OpenFile &&other) noexcept;
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;
    ~OpenFile();

    [[nodiscard]] std::string ReadAll(std::error_code &error) const;
    void WriteAt(std::uint64_t offset, std::string_view bytes, std::error_code &error);
    void SetSize(std::uint64_t size, std::error_code &error);
    // Until the disk has it.
    void Flush(std::error_code &error);
    void Close(std::error_code &error);

private:
    using Handle = std::intptr_t; // a descriptor or a HANDLE
    static constexpr Handle closed = -1;

    explicit OpenFile(Handle handle) : handle_(handle) {}

    Handle handle_;
};

} // namespace ovrin
