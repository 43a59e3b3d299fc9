#include "core/paths/PathForm.h"

#include "core/paths/FileStatus.h"
#include "core/paths/FileStatusPlatform.h"
#include "core/paths/PathRoot.h"

#include <algorithm>

namespace ovrin::PathForm {

namespace {

using NativeText = std::filesystem::path::string_type;

constexpr auto separator = std::filesystem::path::preferred_separator;

std::filesystem::path Assemble(const NativeText &rootName, const std::filesystem::path &local) {
    return std::filesystem::path(rootName + local.native()).make_preferred();
}

bool IsThere(const NativeText &path, std::error_code &error) {
    std::error_code query;
    const bool exists = path.empty() || QueryEntry(path, query);
    if (!exists && !MeansAbsent(query)) {
        error = query;
    }
    return exists;
}

// Where the part of a path that exists ends, of the places where it may; the path isn't there as a whole. What lies
// under a folder that isn't there isn't there either. Mostly a project or its folder has gone and no more, so the
// search goes up in steps that grow, and halves the last of them.
std::size_t EndOfExistingPart(const NativeText &text, const std::vector<std::size_t> &ends, std::error_code &error) {
    const auto isThere = [&](std::size_t end) { return IsThere(text.substr(0, end), error); };
    const bool isLastKnown = ends.back() == text.size(); // without separators behind it the whole is the last element
    auto missing = ends.end() - (isLastKnown && ends.size() > 1 ? 1 : 0);
    for (int asked = 0; missing != ends.begin(); ++asked) {
        const auto next = missing - std::min(std::ptrdiff_t{1} << asked / 2, missing - ends.begin());
        if (isThere(*next)) {
            missing = std::partition_point(next + 1, missing, isThere);
            break;
        }
        missing = next;
    }
    return missing == ends.begin() ? 0 : *(missing - 1);
}

// Whether the path leaves the disk where that part ended.
bool LeavesDiskBehind(const ExistingPart &part, const NativeText &text, const std::vector<std::size_t> &ends,
                      std::error_code &error) {
    const auto end = std::ranges::lower_bound(ends, part.text.size());
    return !part.text.empty() && end != ends.end() && *end == part.text.size() && end + 1 != ends.end() &&
           text.starts_with(part.text) && !IsThere(text.substr(0, *(end + 1)), error);
}

// Finds the longest leading part of a path that isn't there as a whole. Empty, without an error, where nothing is.
void FindExistingPart(const NativeText &text, std::vector<std::size_t> ends, ExistingPart &part,
                      std::error_code &error) {
    ends.insert(ends.begin(), SplitRoot(text).rootName.size() + (IsAbsolute(text) ? 1 : 0));
    if (LeavesDiskBehind(part, text, ends, error)) {
        return;
    }
    part.text = text.substr(0, EndOfExistingPart(text, ends, error));
    part.resolved = error || part.text.empty() ? std::filesystem::path() : ResolveLinks(part.text, error);
}

// Without the separators before it.
NativeText Behind(std::size_t end, const NativeText &text) {
    return text.substr(std::min(GenericText(text).find_first_not_of(NativeText::value_type{'/'}, end), text.size()));
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

std::vector<std::size_t> EndsOfElements(const std::filesystem::path &path) {
    constexpr NativeText::value_type slash{'/'};
    const NativeText text = GenericText(path);
    std::vector<std::size_t> ends;
    std::size_t begin = text.find_first_not_of(slash, SplitRoot(path).rootName.size());
    while (begin != NativeText::npos) {
        ends.push_back(std::min(text.find(slash, begin), text.size()));
        begin = text.find_first_not_of(slash, ends.back());
    }
    return ends;
}

bool HasParentStep(const std::filesystem::path &path) {
    return path.native().find(NativeText(2, NativeText::value_type{'.'})) != NativeText::npos &&
           std::ranges::any_of(SplitRoot(path).local, [](const auto &element) { return element == ".."; });
}

std::filesystem::path WeaklyCanonical(const std::filesystem::path &path, ExistingPart &part, std::error_code &error) {
    std::error_code query;
    std::filesystem::path whole = ResolveLinks(path, query);
    if (!query) {
        return whole;
    }
    if (!MeansAbsent(query)) {
        error = query;
        return {};
    }
    FindExistingPart(path.native(), EndsOfElements(path), part, error);
    if (error) {
        part = {};
        return {};
    }
    return LexicallyNormal(part.text.empty() ? path : Join(part.resolved, Behind(part.text.size(), path.native())));
}

} // namespace ovrin::PathForm
