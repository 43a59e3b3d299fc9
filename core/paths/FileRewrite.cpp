#include "core/paths/FileRewrite.h"

#include "core/paths/FileRewritePlatform.h"
#include "core/paths/FileStatus.h"

#include <algorithm>

namespace ovrin {

namespace {

// Until there is an error. The cut comes last: what it frees may be gone at once.
void Replace(OpenFile &file, std::string_view oldContent, std::string_view content, std::error_code &error) {
    const std::size_t common = std::min(oldContent.size(), content.size());
    file.WriteAt(common, content.substr(common), error);
    if (!error) {
        file.WriteAt(0, content.substr(0, common), error);
    }
    if (!error) {
        file.Flush(error);
    }
    if (!error && content.size() < oldContent.size()) {
        file.SetSize(content.size(), error);
    }
}

// Best effort: there is an error to report already.
void Restore(OpenFile &file, std::string_view oldContent) {
    std::error_code ignored;
    file.WriteAt(0, oldContent, ignored);
    file.SetSize(oldContent.size(), ignored);
    file.Flush(ignored);
}

// A file that fails to close is let go of all the same, and is opened again for its old content.
void CloseOrRestore(OpenFile &file, const std::filesystem::path &path, std::string_view oldContent,
                    std::error_code &error) {
    file.Close(error);
    if (error) {
        if (std::optional<OpenFile> again = OpenFile::Open(path)) {
            Restore(*again, oldContent);
        }
    }
}

} // namespace

bool RewriteFile(const std::filesystem::path &path, std::string_view content) {
    std::optional<OpenFile> file = OpenFile::Open(path);
    if (!file) {
        return false;
    }
    std::error_code error;
    const std::string oldContent = file->ReadAll(error);
    if (!error) {
        Replace(*file, oldContent, content, error);
        if (error) {
            Restore(*file, oldContent);
        } else {
            CloseOrRestore(*file, path, oldContent, error);
        }
    }
    if (error) {
        throw PathError("write", path, error);
    }
    return true;
}

} // namespace ovrin
