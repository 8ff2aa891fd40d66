#include "core/extension_variables.h"

#include "files/wildcards.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// The name of an entry that is such a variable, else "".
std::u16string_view ExtensionList(std::u16string_view entry)
{
    if (entry.size() < 2 || entry[0] != u'.')
        return {};
    const std::size_t end = entry.find(u'=');
    return end == npos || end + 1 == entry.size() ? std::u16string_view() : entry.substr(0, end);
}

} // namespace

void AddVariableExtensions(std::u16string_view entry, std::vector<CString>& extensions)
{
    std::u16string_view list = ExtensionList(entry);
    while (!list.empty()) {
        const std::size_t end = list.find(u';');
        const std::u16string_view extension = list.substr(0, end);
        if (extension.size() > 1)
            extensions.emplace_back(extension);
        list.remove_prefix(end == npos ? list.size() : end + 1);
    }
}

CString FindExtensionCommand(const std::vector<CString>& entries, std::u16string_view extension)
{
    if (extension.size() < 2)
        return CString();
    for (const CString& entry : entries) {
        const std::u16string_view list = ExtensionList(entry);
        if (!list.empty() && WildcardComparisonEx(list, extension, false, true) == 0)
            return CString(entry.view().substr(list.size() + 1));
    }
    return CString();
}
