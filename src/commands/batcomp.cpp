#include "commands/batcomp.h"

#include <string>

#include "batch/packed_text.h"
#include "batch/zipped_text.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "lang/messages.h"
#include "platform/file_facts.h"
#include "platform/whole_file.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp batcompHelp = {
    u"Packs a batch file: it becomes smaller, and is no longer read by a glance into it.",
    u"BATCOMP [/K] [/O] [/Q] file [target]",
    u"/K  scramble the text, so that unpacking programs cannot read it either; up to 65,535 bytes. This is "
    u"no encryption: it holds off the curious and nobody else\n"
    u"/O  overwrite the target\n"
    u"/Q  say nothing\n"
    u"The target is a .BTM file and runs by the rules of .BTM files; without its name it is the file's own "
    u"with that extension, and in a directory it keeps the file's name. Short texts are packed by their "
    u"commonest bytes, longer ones into a zip archive, whichever is smaller. The file itself stays as it "
    u"is; keep it, for there is no command that unpacks.",
    u"batcomp setup.btm c:\\tools\\setup.btm\n"
    u"batcomp /o /q build.cmd\n"
    u"batcomp /k menu.btm packed.btm",
};

namespace {

constexpr std::size_t longestSource = std::size_t{64} << 20;

CString TargetName(const CString& source, std::u16string_view wanted)
{
    const std::u16string_view own = FileNamePart(source);
    const CString packedName = own.substr(0, ExtensionStart(own)) + CString(u".btm");
    if (wanted.empty())
        return FullPathName(JoinPath(DirectoryPart(source), packedName));
    const bool folder = IsPathSeparator(wanted.back()) || QueryIsDirectory(wanted);
    CString name = folder ? JoinPath(wanted, packedName) : CString(wanted);
    if (ExtensionPart(name).empty())
        name.Append(u".btm");
    return FullPathName(name);
}

// 0, or the code of what speaks against it.
unsigned Refusal(const CString& source, const CString& target, bool overwrite)
{
    if (!EqualNoCase(ExtensionPart(target), u".btm"))
        return errors::onlyMemoryRuns;
    // The same file by another name: the source would be lost.
    if (EqualNoCase(RealPathName(source), RealPathName(target)))
        return ERROR_FILE_EXISTS;
    return !overwrite && ReadFileAttributes(target) ? ERROR_FILE_EXISTS : 0;
}

std::string Pack(std::string_view text, std::u16string_view name, bool scrambled)
{
    const bool wide = RecogniseEncoding(text).encoding == TextEncoding::Utf16;
    const std::string_view lineEnd = wide ? std::string_view("\n\0", 2) : std::string_view("\n");
    if (scrambled)
        return PackText(text, TableForm::Scrambled, lineEnd);
    std::string zipped = ZipCompressBTM(text, CString(name));
    if (text.size() > longestPackedText)
        return zipped;
    std::string packed = PackText(text, TableForm::Plain, lineEnd);
    return zipped.empty() || packed.size() <= zipped.size() ? packed : zipped;
}

int PackFile(const CString& source, const CString& target, bool scrambled, bool quiet)
{
    std::string text;
    if (!ReadWholeFile(source, text, longestSource + 1))
        return MVError(0, source);
    if (IsPackedText(text) || IsZippedText(text))
        return MVError(errors::alreadyPacked, source);
    if (text.size() > (scrambled ? longestPackedText : longestSource))
        return MVError(errors::textTooLong, source);
    const std::string file = Pack(text, FileNamePart(source), scrambled);
    if (file.empty())
        return MVError(ERROR_NOT_ENOUGH_MEMORY, source);
    if (!ReplaceWholeFile(target, file))
        return MVError(0, target);
    if (!quiet && !PrintFormat(u"%s: %d -> %d %s\r\n", LoadMessage(message::packedInto, target), text.size(),
                               file.size(), LoadMessage(message::byteCount)))
        return MVError(0);
    return result::success;
}

} // namespace

int Batcomp_Command(CString& arguments)
{
    std::uint64_t switches = 0;
    if (const int code = ReadSwitches(arguments, u"KOQ", switches))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty() || names.size() > 2)
        return UsageError();
    const CString source = FullPathName(WithoutQuotes(names[0]));
    const CString target =
        TargetName(source, names.size() > 1 ? WithoutQuotes(names[1]).view() : std::u16string_view());
    if (!QueryIsFile(source))
        return MVError(ERROR_FILE_NOT_FOUND, source);
    if (const unsigned code = Refusal(source, target, (switches & 2) != 0))
        return MVError(code, target);
    return PackFile(source, target, (switches & 1) != 0, (switches & 4) != 0);
}
