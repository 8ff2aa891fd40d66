#include "files/directory_source.h"

#include <windows.h>

#include "engine/break.h"
#include "engine/state.h"
#include "files/descriptions.h"
#include "files/excepted_files.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "text/path_names.h"

namespace {

const char16_t* Units(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

EntryFacts FactsOf(const WIN32_FIND_DATAW& entry)
{
    EntryFacts facts;
    facts.attributes = entry.dwFileAttributes;
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        facts.reparseTag = entry.dwReserved0;
    facts.size = (static_cast<std::uint64_t>(entry.nFileSizeHigh) << 32) | entry.nFileSizeLow;
    facts.written = FileTimeNumber(entry.ftLastWriteTime);
    facts.accessed = FileTimeNumber(entry.ftLastAccessTime);
    facts.created = FileTimeNumber(entry.ftCreationTime);
    return facts;
}

} // namespace

unsigned SystemDirectories::Read(std::u16string_view directory, std::u16string_view name, EntrySink& sink)
{
    constexpr unsigned entriesBetweenBreaks = 256;
    ThrowIfBroken();
    WIN32_FIND_DATAW entry;
    // One system call fetches many entries.
    const OwnedFindHandle search(FindFirstFileExW(SystemPath(JoinPath(directory, name)).w(),
                                                  shortNames ? FindExInfoStandard : FindExInfoBasic, &entry,
                                                  FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (search) {
        const ExceptedFiles* excepted = Tls().exceptedFiles.get();
        const CString real = excepted ? ExceptedDirectory(directory) : CString();
        unsigned count = 0;
        do {
            if (!excepted || !excepted->names.contains(real + Units(entry.cFileName)))
                sink.Take({Units(entry.cFileName), Units(entry.cAlternateFileName), FactsOf(entry)});
            if (++count % entriesBetweenBreaks == 0)
                ThrowIfBroken();
        } while (FindNextFileW(search.Get(), &entry));
    }
    const unsigned code = GetLastError();
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_NO_MORE_FILES ? 0 : code;
}

std::optional<DirectoryIdentity> SystemDirectories::Identify(std::u16string_view directory)
{
    const std::optional<FileIdentity> identity = IdentifyFile(directory);
    if (!identity)
        return std::nullopt;
    return DirectoryIdentity{identity->volume, identity->file};
}

std::uint64_t SystemDirectories::CompressedSize(std::u16string_view directory, std::u16string_view name)
{
    return CompressedFileSize(JoinPath(directory, name)).value_or(0);
}

CString SystemDirectories::Owner(std::u16string_view directory, std::u16string_view name)
{
    return FileOwner(JoinPath(directory, name));
}

CString SystemDirectories::Description(std::u16string_view directory, std::u16string_view name)
{
    if (!descriptions || describedDirectory.view() != directory) {
        descriptions.emplace(directory);
        describedDirectory = directory;
    }
    return descriptions->Of(name);
}
