#include "commands/hash.h"

#include <span>

#include <windows.h>

#include "commands/checksum_lines.h"
#include "commands/search_switches.h"
#include "console/progress.h"
#include "core/command_switches.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_digest.h"
#include "files/file_search.h"
#include "files/text_lines.h"
#include "lang/function_messages.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/encoding.h"
#include "text/words.h"

const CommandHelp hashHelp = {
    u"Prints or checks the checksums of files and texts.",
    u"HASH [/A:algorithm[+...]] [/S[n]] [/H] [/U] file ...\n"
    u"HASH [/A:algorithm[+...]] [/U] /T text\n"
    u"HASH [/A:algorithm] /C:checksum file ...\n"
    u"HASH [/A:algorithm] [/Q] /V file ...",
    u"/A  CRC32, MD5, SHA1, SHA256 (if not told), SHA384, SHA512, or * for all\n"
    u"/C  compares the files with this checksum; its length tells the algorithm\n"
    u"/H  hidden and system files too\n"
    u"/Q  with /V, names only the files that are not right\n"
    u"/S  in subdirectories too, n levels deep\n"
    u"/T  the checksum of the text behind the switch, in UTF-8\n"
    u"/U  in upper case\n"
    u"/V  checks the files that are listed in these files, as HASH and similar tools print them, or as "
    u"\"name CRC32\"\n"
    u"Names may hold wildcards, and ranges pick files as in DIR. With one algorithm a line is the checksum, "
    u"two blanks and the name; with several it is \"algorithm (name) = checksum\". A name that is a "
    u"directory stands for all files in it. In lists in files letters that the code page does not have "
    u"need the setting UTF8Output. The result is 0 when every file could be read and every checksum was "
    u"right.",
    u"hash setup.exe\n"
    u"hash /a:md5+sha1 *.zip\n"
    u"hash /c:900150983cd24fb0d6963f7d28e17f72 abc.txt\n"
    u"hash /s *.jpg > photos.sum & hash /v photos.sum",
};

namespace {

struct HashOptions {
    std::vector<DigestKind> kinds; // empty: not told
    CString wanted;                // the checksum to compare with
    AttributeMasks attributes;
    RANGES ranges;
    int deepest = 0;
    bool quiet = false;
    bool isText = false;
    bool upperCase = false;
    bool verify = false;

    DigestKind Kind() const { return kinds.empty() ? DigestKind::Sha256 : kinds.front(); }
};

constexpr DigestKind everyKind[] = {DigestKind::Crc32,  DigestKind::Md5,    DigestKind::Sha1,
                                    DigestKind::Sha256, DigestKind::Sha384, DigestKind::Sha512};

// "md5+sha1" or "*". 0, or the result of a reported error.
int ReadKinds(std::u16string_view text, std::vector<DigestKind>& kinds)
{
    if (text == u"*") {
        kinds.assign(std::begin(everyKind), std::end(everyKind));
        return 0;
    }
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find_first_of(u"+,;", start), text.size());
        const std::optional<DigestKind> kind = FindDigestKind(text.substr(start, end - start));
        if (!kind)
            return MVError(errors::unknownAlgorithm, text.substr(start, end - start));
        kinds.push_back(*kind);
        start = end + 1;
    }
    return 0;
}

// The algorithm whose checksums have so many digits.
std::optional<DigestKind> KindOfLength(std::size_t digits)
{
    for (const DigestKind kind : everyKind) {
        if (DigestDigits(kind) == digits)
            return kind;
    }
    return std::nullopt;
}

int ReadTexts(CString& arguments, HashOptions& options)
{
    CString text;
    if (TakeSwitchText(arguments, u"A", text)) {
        if (const int code = ReadKinds(text, options.kinds))
            return code;
    }
    if (TakeSwitchText(arguments, u"C", options.wanted)) {
        if (options.wanted.empty())
            return UsageError();
        const auto kind = KindOfLength(options.wanted.size());
        if (!kind)
            return MVError(errors::unknownAlgorithm, options.wanted);
        if (options.kinds.empty())
            options.kinds = {*kind};
    }
    return TakeDepthSwitch(arguments, options.deepest);
}

int ReadOptions(CString& arguments, HashOptions& options)
{
    // The text may hold anything, switches too.
    const std::size_t textStart = FindTextSwitch(arguments, CurrentSyntax().switchChar);
    CString text;
    if (textStart != CString::npos) {
        text = arguments.Substr(textStart + 2);
        arguments.Truncate(textStart);
        options.isText = true;
    }
    if (const int code = GetRange(arguments, &options.ranges, 0))
        return code;
    if (const int code = ReadTexts(arguments, options))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"HQUV", flags))
        return code;
    if ((flags & 1) != 0)
        options.attributes = AttributeMasks::Everything();
    options.attributes.forbidden |= file_attribute::directory;
    options.quiet = (flags & 2) != 0;
    options.upperCase = (flags & 4) != 0;
    options.verify = (flags & 8) != 0;
    if (options.isText)
        arguments = text.TrimLeft();
    return 0;
}

CString ChecksumLine(DigestKind kind, const CString& digits, std::u16string_view name, bool several)
{
    return several ? Format(u"%s (%s) = %s", DigestName(kind), name, digits)
                   : Format(u"%s  %s", digits, name);
}

std::vector<Digest> MakeDigests(const HashOptions& options)
{
    std::vector<Digest> digests;
    if (options.kinds.empty())
        digests.emplace_back(DigestKind::Sha256);
    for (const DigestKind kind : options.kinds)
        digests.emplace_back(kind);
    return digests;
}

int PrintDigests(std::vector<Digest>& digests, const HashOptions& options, std::u16string_view name)
{
    const bool several = digests.size() > 1;
    for (std::size_t i = 0; i < digests.size(); ++i) {
        const DigestKind kind = options.kinds.empty() ? DigestKind::Sha256 : options.kinds[i];
        const CString digits = HexDigits(digests[i].Finish(), options.upperCase);
        const CString line = name.empty() && !several ? digits : ChecksumLine(kind, digits, name, several);
        if (!PrintLine(line))
            return MVError(0);
    }
    return result::success;
}

// Reads the file, with a line that tells how far that is.
bool DigestWatched(const CString& name, std::span<Digest> digests)
{
    Progress progress;
    if (!progress.IsWatched())
        return DigestFile(name, digests);
    progress.Expect(1, ReadFileFacts(name).value_or(FileFacts()).size);
    progress.Begin(name);
    std::uint64_t bytes = 0;
    return DigestFile(name, digests, [&](std::uint64_t more) { progress.At(bytes += more); });
}

// Prints the file's checksums, or compares the first with what is wanted.
int HashFile(const CString& name, const CString& fullName, const HashOptions& options)
{
    std::vector<Digest> digests = MakeDigests(options);
    if (!DigestWatched(fullName, digests))
        return MVError(0, name);
    if (options.wanted.empty())
        return PrintDigests(digests, options, name);
    if (!EqualNoCase(HexDigits(digests.front().Finish()), options.wanted))
        return MVError(errors::checksumDiffers, name);
    return PrintLine(LoadMessage(message::checksumRight, name)) ? result::success : MVError(0);
}

int HashFiles(const CString& name, const HashOptions& options)
{
    FILESEARCH search;
    search.attributes = options.attributes;
    search.ranges = options.ranges;
    search.deepest = options.deepest;
    search.intoDirectories = true;
    int code = result::success;
    bool found = false;
    for (bool more = FindFiles(search, name); more; more = FindFiles(search)) {
        found = true;
        if (HashFile(search.name, search.fullName, options) != result::success)
            code = result::error;
    }
    ForEachFailure(search, [&](unsigned why, const CString& failed) { code = MVError(why, failed); });
    return found || search.error != 0 ? code : MVError(ERROR_FILE_NOT_FOUND, name);
}

int VerifyFile(const ChecksumEntry& entry, const HashOptions& options)
{
    const auto kind = entry.kind ? entry.kind : KindOfLength(entry.digits.size());
    if (!kind)
        return MVError(errors::unknownAlgorithm, entry.digits);
    Digest digest(options.kinds.empty() || entry.kind ? *kind : options.Kind());
    if (!DigestWatched(entry.name, {&digest, 1}))
        return MVError(0, entry.name);
    if (!EqualNoCase(HexDigits(digest.Finish()), entry.digits))
        return MVError(errors::checksumDiffers, entry.name);
    const bool shown = options.quiet || PrintLine(LoadMessage(message::checksumRight, entry.name));
    return shown ? result::success : MVError(0);
}

// Checks what a file of checksums lists; lines of other kinds are passed over.
int VerifyList(const CString& name, const HashOptions& options)
{
    TextLines lines;
    if (!lines.Open(name))
        return MVError(0, name);
    int code = result::success;
    bool found = false;
    for (std::u16string_view line; lines.Next(line);) {
        const std::optional<ChecksumEntry> entry = ReadChecksumLine(line);
        found = found || entry;
        if (entry && VerifyFile(*entry, options) != result::success)
            code = result::error;
    }
    return found ? code : MVError(errors::noChecksums, name);
}

} // namespace

int Hash_Command(CString& arguments)
{
    HashOptions options;
    if (const int code = ReadOptions(arguments, options))
        return code;
    if (options.isText) {
        std::vector<Digest> digests = MakeDigests(options);
        for (Digest& digest : digests)
            digest.Update(ToUtf8(WithoutOuterQuotes(arguments)));
        return PrintDigests(digests, options, u"");
    }
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    int code = result::success;
    for (const CString& name : names) {
        const int one = options.verify ? VerifyList(WithoutQuotes(name), options) : HashFiles(name, options);
        if (one != result::success)
            code = one;
    }
    return code;
}
