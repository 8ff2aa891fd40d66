#include "files/hidden_files.h"

#include <windows.h>

#include "engine/data_folder.h"
#include "files/text_lines.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "platform/process_list.h"
#include "platform/whole_file.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"

namespace {

constexpr std::u16string_view recordStem = u"MovaExcept";
constexpr std::u16string_view recordExtension = u".lst";

CString NewRecordName()
{
    for (unsigned number = 0;; ++number) {
        CString name = JoinPath(
            DataFolder(), Format(u"%s-%u-%u%s", recordStem, GetCurrentProcessId(), number, recordExtension));
        if (!ReadFileAttributes(name))
            return name;
    }
}

// 0 also when it is gone: the command may have moved or deleted it.
unsigned ShowAgain(const CString& name)
{
    const std::optional<std::uint32_t> attributes = ReadFileAttributes(name);
    if (!attributes) {
        const unsigned code = GetLastError();
        return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ? 0 : code;
    }
    return ChangeAttributes(name, *attributes & ~std::uint32_t{FILE_ATTRIBUTE_HIDDEN});
}

// The process that a record's name tells; 0 for other names.
unsigned ProcessOfRecord(std::u16string_view name)
{
    if (!BeginsNoCase(name, recordStem) || name.size() <= recordStem.size() + 1)
        return 0;
    return static_cast<unsigned>(ReadDecimal(name.substr(recordStem.size() + 1)).value_or(0));
}

} // namespace

unsigned HiddenFiles::Hide(const std::vector<CString>& names, CString& failed)
{
    std::vector<CString> visible;
    std::string text;
    for (const CString& name : names) {
        const std::optional<std::uint32_t> attributes = ReadFileAttributes(name);
        if (!attributes || (*attributes & FILE_ATTRIBUTE_HIDDEN) != 0)
            continue;
        visible.push_back(name);
        text += ToUtf8(name) + "\r\n";
    }
    record = NewRecordName();
    if (!ReplaceWholeFile(record, text)) {
        failed = record;
        record.Clear();
        return GetLastError();
    }
    for (const CString& name : visible) {
        const std::uint32_t attributes = ReadFileAttributes(name).value_or(0);
        if (const unsigned code = ChangeAttributes(name, attributes | FILE_ATTRIBUTE_HIDDEN)) {
            failed = name;
            CString still;
            Restore(still);
            return code;
        }
        hidden.push_back(name);
    }
    return 0;
}

unsigned HiddenFiles::Restore(CString& failed)
{
    unsigned code = 0;
    for (const CString& name : hidden)
        if (const unsigned one = ShowAgain(name)) {
            code = one;
            failed = name;
        }
    hidden.clear();
    // What could not be done now is left to RestoreHidden.
    if (!record.empty() && code == 0)
        EraseFile(record);
    record.Clear();
    return code;
}

void RestoreHidden(const std::function<void(const CString&)>& restored)
{
    std::vector<CString> records;
    WIN32_FIND_DATAW entry;
    const OwnedFindHandle search(
        FindFirstFileW(JoinPath(DataFolder(), Format(u"%s-*%s", recordStem, recordExtension)).w(), &entry));
    if (!search)
        return;
    do {
        const CString name(reinterpret_cast<const char16_t*>(entry.cFileName));
        const unsigned process = ProcessOfRecord(name);
        if (process != 0 && !IsProcess(process))
            records.push_back(JoinPath(DataFolder(), name));
    } while (FindNextFileW(search.Get(), &entry));
    for (const CString& record : records) {
        TextLines lines;
        if (!lines.Open(record))
            continue;
        bool all = true;
        for (std::u16string_view line; lines.Next(line);) {
            const CString name(line);
            const bool there = !line.empty() && ReadFileAttributes(name);
            const bool shown = ShowAgain(name) == 0;
            if (there && shown)
                restored(name);
            all = all && (shown || line.empty());
        }
        lines = {};
        if (all)
            EraseFile(record);
    }
}
