#include "commands/describe.h"

#include <windows.h>

#include "commands/file_work.h"
#include "core/command_switches.h"
#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/descriptions.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp describeHelp = {
    u"Shows and changes the descriptions of files.",
    u"DESCRIBE [range ...] [/A[:]attributes] [/D\"text\"] [/E] [/L] [/N] [/P] [/Q] [/S] [/T] file "
    u"[[/D]\"text\"] ...",
    u"/A  files with attributes, as DIR /A tells\n"
    u"/D  the description; in front of all files it is that of each file without one of its own. /D\"\" "
    u"takes descriptions away\n" FILE_WORK_SWITCHES u"/L  list the descriptions and change nothing\n"
    u"/S  in all subdirectories too\n"
    u"A text in quotes behind a file describes it. A file without any text is asked for at the keyboard, "
    u"where its description is edited, or read as a line from redirected input. Wildcards mean files, with "
    u"/AD directories. Descriptions stand in the hidden file DESCRIPT.ION of each directory "
    u"(DescriptionName), or with NTFSDescriptions in the files themselves, and are cut at DescriptionMax "
    u"characters. The result counters are %_describe_files, %_describe_dirs and %_describe_errors.",
    u"describe plan.doc \"What we do next year\"\n"
    u"describe *.jpg\n"
    u"describe /s /l *\n"
    u"describe /d\"\" *.tmp",
};

namespace {

// In front of a word that was the text of /D: what it stands behind decides whom it describes.
constexpr char16_t describing = u'\x1';

struct Described {
    CString file;
    std::optional<CString> text;
};

bool IsQuoted(std::u16string_view word)
{
    return word.size() >= 2 && word.front() == u'"' && word.back() == u'"';
}

// Turns each /D into a marked word, which stays where it stood.
void MarkTexts(CString& arguments)
{
    const Syntax& syntax = CurrentSyntax();
    for (Word word = NextWord(arguments, 0, syntax); word.length > 0;
         word = NextWord(arguments, word.end(), syntax)) {
        std::u16string_view text = arguments.view().substr(word.start, word.length);
        if (text.size() < 2 || text[0] != syntax.switchChar || UpperCase(text[1]) != u'D')
            continue;
        text.remove_prefix(2);
        if (text.starts_with(u':') || text.starts_with(u'='))
            text.remove_prefix(1);
        CString marked(1, u'"');
        marked.Append(describing).Append(WithoutQuotes(text)).Append(u'"');
        arguments.Replace(word.start, word.length, marked);
        word.length = marked.size();
    }
}

// Files with the texts that follow them; `common` is the text in front of all files.
std::vector<Described> PairTexts(const CString& arguments, std::optional<CString>& common)
{
    std::vector<Described> files;
    for (const CString& word : SplitArguments(arguments, true, CurrentSyntax())) {
        const CString text = WithoutOuterQuotes(word);
        const bool marked = text.front() == describing;
        if (marked && files.empty())
            common = text.Substr(1);
        else if (marked)
            files.back().text = text.Substr(1);
        else if (IsQuoted(word) && !files.empty() && !files.back().text)
            files.back().text = text;
        else
            files.push_back({word, std::nullopt});
    }
    return files;
}

class Describing {
public:
    Describing(const FileWorkOptions& options, bool showsOnly, bool isQuiet)
        : work(u"describe", options, BatchManners::Silent), quiet(isQuiet), lists(showsOnly)
    {}

    void Take(FILESEARCH& search, const Described& what)
    {
        work.ForEachDirectory(search, what.file, [&](const SearchedDirectory& directory) {
            if (lists)
                List(directory);
            else
                Describe(directory, what.text);
        });
    }

    bool InputEnded() const { return inputEnded; }

    FileWork work;

private:
    void List(const SearchedDirectory& directory)
    {
        const DirectoryDescriptions descriptions(directory.found.name);
        for (const FoundFile& file : directory.found.files) {
            const CString text = descriptions.Of(file.name);
            if (text.empty())
                continue;
            const CString shown = CString(directory.shown) + file.name;
            if (!quiet)
                PrintLine(Format(u"%-32s  %s", shown, text));
            Count(file, shown, {});
        }
    }

    void Describe(const SearchedDirectory& directory, const std::optional<CString>& text)
    {
        const DirectoryDescriptions before(directory.found.name);
        const bool together = text && !aIniFile.NTFSDescriptions && !work.Pretends();
        DescriptionList list = together ? ReadDescriptions(directory.found.name) : DescriptionList();
        std::vector<const FoundFile*> taken;
        for (const FoundFile& file : directory.found.files) {
            const CString shown = CString(directory.shown) + file.name;
            if (inputEnded || !work.Wants(message::askDescribe, shown))
                continue;
            CString description = text.value_or(CString());
            if (!text && !Ask(shown, before.Of(file.name), description))
                continue;
            description.Truncate(aIniFile.DescriptionMax);
            if (together) {
                list.Set(file.name, description);
                taken.push_back(&file);
            } else if (!work.Pretends() && !SetDescription(directory.found.name, file.name, description)) {
                work.Failed(GetLastError(), shown);
            } else {
                Count(file, shown, description);
            }
        }
        if (!taken.empty())
            WriteTogether(directory, list, taken, text->view().substr(0, aIniFile.DescriptionMax));
    }

    // The file of descriptions is written once for all that get the same text.
    void WriteTogether(const SearchedDirectory& directory, const DescriptionList& list,
                       const std::vector<const FoundFile*>& files, std::u16string_view description)
    {
        if (!WriteDescriptions(directory.found.name, list)) {
            work.Failed(GetLastError(), JoinPath(directory.shown, DescriptionFileName()));
            return;
        }
        for (const FoundFile* file : files)
            Count(*file, CString(directory.shown) + file->name, description);
    }

    // False when nobody answers.
    bool Ask(const CString& shown, const CString& present, CString& description)
    {
        if (IsConsole(0))
            Print(LoadMessage(message::describePrompt, shown));
        LineRequest request;
        request.text = present;
        request.longest = aIniFile.DescriptionMax;
        inputEnded = ReadInputLine(description, request) == InputOutcome::Ended;
        if (inputEnded)
            work.Failed(ERROR_HANDLE_EOF, shown);
        return !inputEnded;
    }

    void Count(const FoundFile& file, const CString& shown, std::u16string_view description)
    {
        file.facts.IsDirectory() ? work.DidDirectory(message::nameAlone, shown, description)
                                 : work.Did(message::nameAlone, shown, description);
        if (!lists && !work.Pretends())
            NotifyOfChange(FolderChange::FileUpdated, shown);
    }

    bool quiet;
    bool lists;
    bool inputEnded = false;
};

} // namespace

int Describe_Command(CString& arguments)
{
    FILESEARCH search;
    FileWorkOptions options;
    std::uint64_t flags = 0;
    MarkTexts(arguments);
    if (const int code = ReadFileWork(arguments, u"LS", search, options, flags))
        return code;
    const bool lists = (flags & 1) != 0;
    std::optional<CString> common;
    std::vector<Described> files = PairTexts(arguments, common);
    if (files.empty() && lists)
        files.push_back({u"*", std::nullopt});
    if (files.empty())
        return UsageError();
    if ((flags & 2) != 0)
        search.deepest = allLevels;
    const bool quiet = options.quiet;
    options.quiet = quiet || lists;
    const AttributeMasks masks = search.attributes;
    Describing work(options, lists, quiet);
    const auto all = [&] {
        for (Described& one : files) {
            if (!one.text)
                one.text = common;
            search.attributes = lists ? masks : MasksFor(one.file, search, masks);
            if (!work.InputEnded())
                work.Take(search, one);
        }
    };
    work.work.Do(all, message::filesDescribed);
    const int code = work.work.Finish(message::filesDescribed);
    // Else a list of nothing would fail without a word.
    if (lists && !quiet && code != 0 && work.work.Errors() == 0)
        PrintError(LoadMessage(message::filesDescribed) + u"\r\n");
    return code;
}
