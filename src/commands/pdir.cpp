#include "commands/pdir.h"

#include <algorithm>
#include <vector>

#include <windows.h>

#include "commands/file_order.h"
#include "commands/file_texts.h"
#include "commands/listing_output.h"
#include "commands/pdir_format.h"
#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/expansion_entry.h"
#include "engine/internal_entry.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/file_digest.h"
#include "files/file_search.h"
#include "lang/file_messages.h"
#include "platform/file_details.h"
#include "platform/link_target.h"
#include "text/cell_width.h"
#include "text/format.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp pdirHelp = {
    u"Lists files and directories in a format of one's own.",
    u"PDIR [range ...] [/(format)] [/A[:]attributes] [/O[:]order] [/P] [/S[levels]] [name ...]",
    u"/(  the fields of a line, see below; \"d  t 14sc n\" if not told\n"
    u"/A  files with attributes, as DIR /A tells\n" FILE_ORDER_HELP u"/P  wait for a key after each screen\n"
    u"/S  directories below as well; with a number, so many levels of them\n"
    u"Fields are letters with modifiers behind them and a width in front. Numbers stand at the right of "
    u"their width and texts at the left; a \"-\" in front of the width puts either at the left.\n"
    u"a  attributes, as letters\n"
    u"b  name without extension\n"
    u"c  CRC-32 of the contents; c1 SHA-1, c2 SHA-256, c5 MD5\n"
    u"d  date of the last write; da last access, dc creation; with u in UTC\n"
    u"e  extension\n"
    u"f  full name\n"
    u"h  how many names (hard links) the file has\n"
    u"i  description\n"
    u"l  where a link leads to\n"
    u"n  name\n"
    u"o  owner\n"
    u"p  directory, with a separator at its end\n"
    u"s  size in bytes; sc with separators, sd as it takes room on the disk, sk sm sg in thousands, "
    u"millions and so on of bytes, sK sM sG in powers of 1024\n"
    u"t  time, with the letters of d\n"
    u"x  short name\n"
    u"y  <DIR> and its like, nothing for plain files\n"
    u"@  a variable function with its brackets, in which * is the full name\n"
    u"Text in single quotes, blanks and punctuation stand for themselves. Double quotes around the whole "
    u"switch keep the command line from taking | < > & for its own. Names and ranges are those of DIR. The "
    u"result counters are %_pdir_files, %_pdir_dirs and %_pdir_errors.",
    u"pdir /(d t 12sc n) *.txt\n"
    u"pdir /s /a:-d /(f,s,c2)\n"
    u"pdir \"/(-40n '|' 8sK i)\" *\n"
    u"pdir /(n @words[0,*]) *.btm",
};

namespace {

struct PdirOptions {
    std::vector<PdirField> format;
    std::vector<FileSortKey> order;
    FILESEARCH search;
    bool pauses = false;
};

// Takes "/(...)" out of the arguments, with double quotes around it; false when its end is missing.
bool TakeFormat(CString& arguments, CString& format)
{
    const CString start = Format(u"%c(", CurrentSyntax().switchChar);
    const std::size_t begin = arguments.Find(start);
    if (begin == CString::npos)
        return true;
    int depth = 0;
    bool quoted = false;
    for (std::size_t at = begin + 1; at < arguments.size(); ++at) {
        const char16_t unit = arguments[at];
        quoted = quoted != (unit == u'\'');
        if (quoted)
            continue;
        depth += unit == u'(' ? 1 : unit == u')' ? -1 : 0;
        if (depth == 0) {
            format = arguments.Substr(begin + 2, at - begin - 2);
            const bool inQuotes = begin > 0 && arguments[begin - 1] == u'"' && arguments[at + 1] == u'"';
            CutSwitch(arguments, begin - inQuotes, at + 1 - begin + 2 * inQuotes);
            return true;
        }
    }
    return false;
}

int ReadOptions(CString& arguments, PdirOptions& options)
{
    CString format = u"d  t 14sc n";
    if (!TakeFormat(arguments, format))
        return UsageError();
    std::size_t mistake = 0;
    const auto fields = ReadPdirFormat(format, mistake);
    if (!fields)
        return MVError(errors::invalidField, format.Substr(mistake));
    options.format = *fields;
    if (const int code = GetRange(arguments, &options.search.ranges, 0))
        return code;
    int code = TakeAttributeSwitches(arguments, options.search.attributes);
    CString text;
    while (code == 0 && TakeSwitchLetters(arguments, u"O", text))
        code = ReadFileOrder(text.view().substr(text.view().starts_with(u':') ? 1 : 0), options.order);
    if (code == 0)
        code = TakeDepthSwitch(arguments, options.search.deepest);
    std::uint64_t flags = 0;
    if (code == 0)
        code = ReadSwitches(arguments, u"P", flags);
    options.pauses = flags != 0;
    options.search.intoDirectories = true;
    options.search.shortNames = std::any_of(options.format.begin(), options.format.end(),
                                            [](const PdirField& field) { return field.letter == u'x'; });
    return code;
}

class FormattedListing {
public:
    explicit FormattedListing(PdirOptions& what) : options(what), output(what.pauses) {}

    void List(const CString& name);
    int Finish();

private:
    CString LineOf(const CString& directory, const FoundFile& file);
    CString ValueOf(const PdirField& field, const CString& directory, const FoundFile& file);
    CString SizeOf(const PdirField& field, const CString& path, const FoundFile& file);
    CString TimeOf(const PdirField& field, const FoundFile& file);
    CString DigestOf(const PdirField& field, const CString& path, const FoundFile& file);
    CString FunctionOf(const PdirField& field, const CString& path);
    void Failed(unsigned code, std::u16string_view name);

    PdirOptions& options;
    ListingOutput output;
    FileTexts texts;
    SystemDirectories questions{false};
    ResultCounts counts;
};

bool Has(const PdirField& field, char16_t modifier) { return field.text.Find(modifier) != CString::npos; }

bool IsNumber(char16_t letter) { return letter == u's' || letter == u'h'; }

void FormattedListing::Failed(unsigned code, std::u16string_view name)
{
    ++counts.errors;
    output.Flush();
    MVError(code, name);
}

CString FormattedListing::TimeOf(const PdirField& field, const FoundFile& file)
{
    const std::uint64_t time = ::TimeOf(file.facts, Has(field, u'a')   ? WhichTime::Accessed
                                                    : Has(field, u'c') ? WhichTime::Created
                                                                       : WhichTime::Written);
    texts.utc = Has(field, u'u');
    return field.letter == u'd' ? texts.Date(time) : texts.Time(time);
}

CString FormattedListing::SizeOf(const PdirField& field, const CString& path, const FoundFile& file)
{
    std::uint64_t size = file.facts.size;
    if (Has(field, u'd') && !file.facts.IsDirectory())
        size = CompressedFileSize(path).value_or(size);
    constexpr std::u16string_view units = u"kmgKMG";
    for (std::size_t i = 0; i < units.size(); ++i)
        if (Has(field, units[i]))
            for (std::size_t times = 0; times <= i % 3; ++times)
                size = (size + (i < 3 ? 999 : 1023)) / (i < 3 ? 1000 : 1024);
    return Has(field, u'c') ? texts.Number(size) : Format(u"%u", size);
}

CString FormattedListing::DigestOf(const PdirField& field, const CString& path, const FoundFile& file)
{
    if (file.facts.IsDirectory())
        return {};
    Digest digest(Has(field, u'1')   ? DigestKind::Sha1
                  : Has(field, u'2') ? DigestKind::Sha256
                  : Has(field, u'5') ? DigestKind::Md5
                                     : DigestKind::Crc32);
    if (DigestFile(path, {&digest, 1}))
        return HexDigits(digest.Finish());
    Failed(0, path);
    return {};
}

CString FormattedListing::FunctionOf(const PdirField& field, const CString& path)
{
    CString text = u"%";
    for (const char16_t unit : field.text.view()) {
        if (unit == u'*')
            text.Append(path);
        else
            text.Append(unit);
    }
    if (VariableExpansion(text) != 0) {
        ++counts.errors;
        return {};
    }
    return text;
}

CString FormattedListing::ValueOf(const PdirField& field, const CString& directory, const FoundFile& file)
{
    const CString path = PathOfEntry(directory, file.name);
    switch (field.letter) {
    case u'a': return AttributeLetters(file.facts.attributes);
    case u'b': return file.name.Substr(0, ExtensionStart(file.name));
    case u'c': return DigestOf(field, path, file);
    case u'd':
    case u't': return TimeOf(field, file);
    case u'e': return CString(ExtensionPart(file.name));
    case u'f': return JoinPath(directory, file.name);
    case u'h': {
        const std::optional<FileIdentity> identity = IdentifyFile(path);
        return identity ? Format(u"%u", identity->links) : CString();
    }
    case u'i': return questions.Description(directory, file.name);
    case u'l': return ReadLinkTarget(path).target;
    case u'n': return file.name;
    case u'o': return questions.Owner(directory, file.name);
    case u'p': return directory;
    case u's': return SizeOf(field, path, file);
    case u'x': return file.shortName.empty() ? file.name : file.shortName;
    case u'y': return texts.Mark(file.facts);
    case u'@': return FunctionOf(field, path);
    default: return field.text;
    }
}

CString FormattedListing::LineOf(const CString& directory, const FoundFile& file)
{
    CString line;
    for (const PdirField& field : options.format) {
        const CString value = ValueOf(field, directory, file);
        const bool right = IsNumber(field.letter) && field.width >= 0;
        const CString padding(std::max(0, std::abs(field.width) - TextWidth(value)), u' ');
        right ? line.Append(padding).Append(value) : line.Append(value).Append(padding);
    }
    return line;
}

void FormattedListing::List(const CString& name)
{
    options.search.error = 0;
    SearchedDirectory directory;
    bool any = false;
    for (StartSearch(options.search, name); !output.Refused() && NextDirectory(options.search, directory);) {
        std::vector<FoundFile>& files = directory.found.files;
        SortFiles(files, directory.found.name, options.order, WhichTime::Written);
        any = any || !files.empty();
        for (const FoundFile& file : files) {
            ++(file.facts.IsDirectory() ? counts.directories : counts.files);
            output.Line(LineOf(directory.found.name, file));
        }
    }
    ForEachFailure(options.search, [this](unsigned code, const CString& failed) { Failed(code, failed); });
    if (!any && options.search.error == 0)
        Failed(ERROR_FILE_NOT_FOUND, name);
}

int FormattedListing::Finish()
{
    SetResultCounters(u"pdir", counts);
    if (!output.Flush())
        return MVError(0);
    return counts.errors ? result::error : result::success;
}

} // namespace

int Pdir_Command(CString& arguments)
{
    PdirOptions options;
    if (const int code = ReadOptions(arguments, options))
        return code;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        names.push_back(u"*");
    FormattedListing listing(options);
    for (const CString& name : names)
        listing.List(name);
    return listing.Finish();
}
