#include "files/new_names.h"

#include <utility>

#include <windows.h>

#include "platform/file_facts.h"
#include "platform/handle.h"

namespace {

constexpr unsigned manyMissing = 16; // from then on the names are worth reading
constexpr std::size_t mostNames = 5000;

} // namespace

bool NewNames::Has(std::u16string_view ofDirectory, std::u16string_view name)
{
    if (directory.view() != ofDirectory) {
        Forget();
        directory = ofDirectory;
    }
    return isRead && !names.contains(CString(name));
}

void NewNames::NoteMissing()
{
    if (++missing == manyMissing)
        ReadNames();
}

void NewNames::NoteMade(std::u16string_view name)
{
    if (isRead)
        names.emplace(name);
}

bool NewNames::Forget()
{
    missing = 0;
    names.clear();
    return std::exchange(isRead, false);
}

// Not as searches read: a large directory is given up before its end.
void NewNames::ReadNames()
{
    WIN32_FIND_DATAW found;
    const OwnedFindHandle search(FindFirstFileExW(SystemPath(CString(directory) + u"*").w(),
                                                  FindExInfoStandard, &found, FindExSearchNameMatch, nullptr,
                                                  FIND_FIRST_EX_LARGE_FETCH));
    if (!search)
        return;
    do {
        names.emplace(reinterpret_cast<const char16_t*>(found.cFileName));
        names.emplace(reinterpret_cast<const char16_t*>(found.cAlternateFileName));
        if (names.size() > mostNames)
            return names.clear();
    } while (FindNextFileW(search.Get(), &found));
    isRead = GetLastError() == ERROR_NO_MORE_FILES;
}
