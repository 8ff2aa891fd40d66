#include "commands/permanent_subst.h"

#include <optional>

#include <windows.h>

#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "platform/drive_substitution.h"
#include "platform/file_facts.h"
#include "platform/registry_editing.h"
#include "platform/volumes.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp psubstHelp = {
    u"Makes drive letters that stand for folders and outlive a restart.",
    u"PSUBST [/U] drive: folder\n"
    u"PSUBST /D [/U] drive: ...\n"
    u"PSUBST",
    u"/D  take the drive away, now and for good\n"
    u"/U  for this user, from each logon on; otherwise for the computer, from its start on, as only "
    u"administrators may\n"
    u"Without a drive all such drives are shown. The drive is there at once. A letter that is in use is an "
    u"error, and so is a folder that does not exist.",
    u"psubst p: C:\\projects\n"
    u"psubst /u m: \"%_mydocuments\\My Music\"\n"
    u"psubst /d p:",
};

namespace {

// The system makes the devices named here when it starts; what this user's logon runs stands in the other.
constexpr std::u16string_view devicesKey =
    u"SYSTEM\\CurrentControlSet\\Control\\Session Manager\\DOS Devices";
constexpr std::u16string_view logonKey = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr std::u16string_view kernelPrefix = u"\\??\\";

RegistryName EntryOf(char16_t letter, bool forUser)
{
    RegistryName name;
    name.root = forUser ? u"HKCU" : u"HKLM";
    name.key = forUser ? logonKey : devicesKey;
    name.value = Format(forUser ? u"PSUBST %c:" : u"%c:", letter);
    return name;
}

// The command that the user's logon runs. In quotes a root's backslash would hide the closing one.
CString LogonCommand(char16_t letter, std::u16string_view folder)
{
    const bool quoted = folder.find(u' ') != folder.npos;
    return Format(quoted ? u"subst.exe %c: \"%s\"" : u"subst.exe %c: %s", letter, folder);
}

// Folders of the network have a name of their own there.
CString KernelName(std::u16string_view folder)
{
    CString name(kernelPrefix);
    return folder.starts_with(u"\\\\") ? name.Append(u"UNC").Append(folder.substr(1)) : name.Append(folder);
}

// The folder that the registry keeps; "" when there is none.
CString KeptFolder(char16_t letter, bool forUser)
{
    RegistryData data;
    if (ReadRegistryValue(EntryOf(letter, forUser), data) != 0)
        return {};
    const CString text = RegistryDataText(data);
    if (forUser) {
        const std::u16string_view start = u"subst.exe X: ";
        return BeginsNoCase(text, u"subst.exe ") ? WithoutQuotes(text.Substr(start.size())) : CString();
    }
    if (!text.view().starts_with(kernelPrefix))
        return {};
    CString folder = text.Substr(kernelPrefix.size());
    return folder.view().starts_with(u"UNC\\") ? folder.Replace(0, 3, u"\\") : folder;
}

unsigned Keep(char16_t letter, const CString& folder, bool forUser)
{
    RegistryData data;
    data.type = REG_SZ;
    ReadRegistryData(forUser ? LogonCommand(letter, folder) : KernelName(folder), data);
    return WriteRegistryValue(EntryOf(letter, forUser), data);
}

std::optional<char16_t> ReadDrive(const CString& word)
{
    const CString name(WithoutEndSeparators(WithoutQuotes(word)));
    if (name.size() > 2 || !IsAsciiLetter(name[0]) || (name.size() == 2 && name[1] != u':'))
        return std::nullopt;
    return UpperCase(name[0]);
}

int ShowAll()
{
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter)
        for (const bool forUser : {false, true}) {
            const CString folder = KeptFolder(letter, forUser);
            if (folder.empty())
                continue;
            CString line = Format(u"%c: -> %s", letter, folder);
            if (forUser)
                line += Format(u" (%s)", LoadMessage(message::substForUser));
            if (!EqualNoCase(SubstitutedFolder(letter), folder))
                line += Format(u" (%s)", LoadMessage(message::substNotNow));
            PrintLine(line);
        }
    return result::success;
}

int Remove(char16_t letter, bool forUser)
{
    const CString drive = Format(u"%c:", letter);
    if (KeptFolder(letter, forUser).empty())
        return MVError(errors::notSubstituted, drive);
    const CString folder = KeptFolder(letter, forUser);
    if (const unsigned failed = DeleteRegistryValue(EntryOf(letter, forUser)))
        return MVError(failed, drive);
    // Somebody may have given the letter to another folder meanwhile.
    if (!EqualNoCase(SubstitutedFolder(letter), folder))
        return result::success;
    const unsigned failed = EndSubstitution(letter);
    return failed ? MVError(failed, drive) : result::success;
}

int Make(char16_t letter, const CString& given, bool forUser)
{
    const CString drive = Format(u"%c:", letter);
    const CString folder(WithoutEndSeparators(FullPathName(given)));
    if (!QueryIsDirectory(folder))
        return MVError(ERROR_PATH_NOT_FOUND, given);
    const bool there = EqualNoCase(SubstitutedFolder(letter), folder);
    if (!there)
        if (const unsigned failed = SubstituteDrive(letter, folder))
            return MVError(failed, drive);
    if (const unsigned failed = Keep(letter, folder, forUser)) {
        if (!there)
            EndSubstitution(letter);
        return MVError(failed, drive);
    }
    return result::success;
}

} // namespace

int Psubst_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"DU", flags))
        return code;
    const bool removes = (flags & 1) != 0;
    const bool forUser = (flags & 2) != 0;
    const std::vector<CString> words = SplitArguments(arguments, true, CurrentSyntax());
    if (words.empty())
        return removes ? UsageError() : ShowAll();
    const std::optional<char16_t> letter = ReadDrive(words[0]);
    if (!letter)
        return MVError(ERROR_INVALID_DRIVE, words[0]);
    if (!removes)
        return words.size() == 2 ? Make(*letter, WithoutQuotes(words[1]), forUser) : UsageError();
    int code = result::success;
    for (const CString& word : words) {
        const std::optional<char16_t> one = ReadDrive(word);
        const int removed = one ? Remove(*one, forUser) : MVError(ERROR_INVALID_DRIVE, word);
        if (removed != result::success)
            code = removed;
    }
    return code;
}
