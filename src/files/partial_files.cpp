#include "files/partial_files.h"

#include <algorithm>
#include <atomic>
#include <optional>

#include <windows.h>

#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "platform/machine_names.h"
#include "platform/process_list.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"

namespace {

constexpr std::u16string_view beginning = u"~mova-";
constexpr std::u16string_view ending = u".part";

// Whose a partial file is. A process number alone would be used again one day, and on another machine.
struct Owner {
    std::uint32_t machine = 0;
    std::uint32_t process = 0;
    std::uint32_t started = 0; // low half of the file time
    friend bool operator==(const Owner&, const Owner&) = default;
};

const Owner& Ourselves()
{
    static const Owner owner = [] {
        FILETIME created = {};
        FILETIME unused[3] = {};
        GetProcessTimes(GetCurrentProcess(), &created, &unused[0], &unused[1], &unused[2]);
        return Owner{static_cast<std::uint32_t>(NoCaseHash{}(ComputerName(ComputerNameNetBIOS))),
                     GetCurrentProcessId(), created.dwLowDateTime};
    }();
    return owner;
}

// "~mova-MACHINE-PROCESS-STARTED-COUNT.part"
CString NameOf(const Owner& owner, unsigned count)
{
    return Format(u"%s%u-%u-%u-%u%s", beginning, owner.machine, owner.process, owner.started, count, ending);
}

std::optional<Owner> OwnerOf(std::u16string_view name)
{
    if (!BeginsNoCase(name, beginning) || !EndsNoCase(name, ending))
        return std::nullopt;
    name.remove_prefix(beginning.size());
    name.remove_suffix(ending.size());
    std::uint32_t numbers[4] = {};
    for (std::uint32_t& number : numbers) {
        std::size_t used = 0;
        number = static_cast<std::uint32_t>(ReadDecimal(name, &used).value_or(0));
        if (used == 0)
            return std::nullopt;
        name.remove_prefix(std::min(used + 1, name.size()));
    }
    return name.empty() ? std::optional(Owner{numbers[0], numbers[1], numbers[2]}) : std::nullopt;
}

bool IsGone(const Owner& owner)
{
    if (owner.machine != Ourselves().machine || owner == Ourselves())
        return false;
    const std::optional<ProcessTimes> times = ReadProcessTimes(owner.process);
    if (!times)
        return !IsProcess(owner.process);
    return times->ended != 0 || static_cast<std::uint32_t>(times->created) != owner.started;
}

} // namespace

PartialFile::PartialFile(std::u16string_view directory)
{
    static std::atomic<unsigned> count{0};
    name = CString(directory) + NameOf(Ourselves(), count++);
}

PartialFile::PartialFile(std::u16string_view directory, std::u16string_view purpose)
{
    // Of no machine, so that nobody takes it for abandoned.
    const auto key = static_cast<std::uint32_t>(NoCaseHash{}(purpose));
    name = CString(directory) + NameOf(Owner{0, 0, key}, 0);
}

PartialFile::~PartialFile()
{
    if (name.empty())
        return;
    const DWORD reason = GetLastError();
    if (EraseFile(name) == ERROR_ACCESS_DENIED) {
        ChangeAttributes(name, FILE_ATTRIBUTE_NORMAL);
        EraseFile(name);
    }
    SetLastError(reason);
}

unsigned PartialFile::TakePlaceOf(std::u16string_view target, bool replace)
{
    if (const unsigned failed = RenameFile(name, target, replace))
        return failed;
    name.Clear();
    return 0;
}

bool IsPartialFileName(std::u16string_view name) { return OwnerOf(name).has_value(); }

void RemoveAbandonedFiles(std::u16string_view directory)
{
    WIN32_FIND_DATAW found;
    const CString pattern = CString(directory) + beginning + u"*" + ending;
    const OwnedFindHandle search(FindFirstFileW(SystemPath(pattern).w(), &found));
    if (!search)
        return;
    do {
        const std::u16string_view name(reinterpret_cast<const char16_t*>(found.cFileName));
        const std::optional<Owner> owner = OwnerOf(name);
        if (!owner || !IsGone(*owner))
            continue;
        const CString full = CString(directory) + name;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0)
            ChangeAttributes(full, FILE_ATTRIBUTE_NORMAL);
        EraseFile(full);
    } while (FindNextFileW(search.Get(), &found));
}
