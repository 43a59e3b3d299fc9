#include "core/paths/PathForm.h"

#include "core/paths/FileStatus.h"
#include "core/paths/PathRoot.h"

#include <algorithm>

namespace ovrin::PathForm {

namespace {

using NativeText = std::filesystem::path::string_type;

constexpr auto separator = std::filesystem::path::preferred_separator;

std::filesystem::path Assemble(const NativeText &rootName, const std::filesystem::path &local) {
    return std::filesystem::path(rootName + local.native()).make_preferred();
}

} // namespace

NativeText GenericText(const std::filesystem::path &path) {
    NativeText text = path.native();
    std::replace(text.begin(), text.end(), NativeText::value_type{separator}, NativeText::value_type{'/'});
    return text;
}

std::filesystem::path LexicallyNormal(const std::filesystem::path &path) {
    const auto [rootName, local] = SplitRoot(path);
    return Assemble(rootName, local.lexically_normal());
}

std::filesystem::path Join(const std::filesystem::path &base, const std::filesystem::path &part) {
    const RootedPath left = SplitRoot(base);
    const RootedPath right = SplitRoot(part);
    if (ovrin::IsAbsolute(right) || (!right.rootName.empty() && right.rootName != left.rootName)) {
        return part;
    }
    if (right.local.has_root_directory()) {
        return left.rootName + right.local.native();
    }
    NativeText text = base.native();
    // A share without a separator behind it is a root all the same.
    if (left.local.has_filename() || (ovrin::IsAbsolute(left) && text.size() == left.rootName.size())) {
        text += separator;
    }
    return text + right.local.native();
}

std::filesystem::path ParentOf(const std::filesystem::path &path) {
    const auto [rootName, local] = SplitRoot(path);
    return rootName + local.parent_path().native();
}

std::filesystem::path FileNameOf(const std::filesystem::path &path) {
    return SplitRoot(path).local.filename();
}

bool IsAbsolute(const std::filesystem::path &path) {
    return ovrin::IsAbsolute(SplitRoot(path));
}

std::filesystem::path MakeAbsolute(const std::filesystem::path &path) {
    if (IsAbsolute(path)) {
        return path;
    }
    const auto [rootName, local] = SplitRoot(path);
    std::error_code error;
    const std::filesystem::path folder = CurrentFolder(rootName, error);
    if (error) {
        throw PathError("absolute", path, error);
    }
    return Join(folder, local);
}

} // namespace ovrin::PathForm
