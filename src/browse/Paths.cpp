#include "browse/Paths.h"

#include "settings/StdModule.h"

std::wstring WithoutTrailingBackslash(std::wstring_view path) {
    if (path.ends_with(L'\\')) {
        path.remove_suffix(1);
    }
    return std::wstring(path);
}

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
    std::wstring path(folder);
    if (!path.ends_with(L'\\')) {
        path += L'\\';
    }
    path += name;
    return path;
}

bool LiesUnder(std::wstring_view path, std::wstring_view root) {
    return !root.empty() && path.size() >= root.size() &&
           (path.size() == root.size() || path[root.size()] == L'\\') &&
           EqualsIgnoreCase(path.substr(0, root.size()), root);
}

std::vector<std::wstring> SplitPath(std::wstring_view path) {
    std::vector<std::wstring> parts;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = path.find(L'\\', begin);
        if (end == std::wstring_view::npos) {
            parts.emplace_back(path.substr(begin));
            return parts;
        }
        parts.emplace_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
}

std::wstring LastPart(std::wstring_view path) {
    const std::size_t separator = path.rfind(L'\\');
    return std::wstring(separator == std::wstring_view::npos ? path : path.substr(separator + 1));
}

std::wstring WithoutExtension(std::wstring_view name) {
    return std::wstring(name.substr(0, name.rfind(L'.')));
}

bool EndsInUrl(std::wstring_view name) {
    constexpr std::wstring_view kExtension = L".url";
    return name.size() >= kExtension.size() &&
           EqualsIgnoreCase(name.substr(name.size() - kExtension.size()), kExtension);
}
