#include "commands/attrib.h"

#include <windows.h>

#include "commands/file_work.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "platform/file_changes.h"
#include "platform/file_facts.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp attribHelp = {
    u"Shows or changes the attributes of files.",
    u"ATTRIB [range ...] [/A[:]attributes] [/D] [/E] [/N] [/P] [/Q] [/S] [/T] [+|-letters ...] [file ...]",
    u"+ and -  set or clear the attributes R (read-only), H (hidden), S (system), A (archive), T "
    u"(temporary), O (offline), I (not indexed), P (pinned), U (unpinned)\n"
    u"/A  files with attributes, as DIR /A tells; all are taken otherwise\n"
    u"/D  directories too\n" FILE_WORK_SWITCHES u"/S  in all subdirectories too\n"
    u"Without files all of the current directory are meant. The result counters are %_attrib_files, "
    u"%_attrib_dirs and %_attrib_errors.",
    u"attrib\n"
    u"attrib +r -a *.doc\n"
    u"attrib /s /a:r -r C:\\work\\*",
};

namespace {

class Attributes {
public:
    Attributes(const FileWorkOptions& options, const AttributeChange& wanted)
        : work(u"attrib", options, BatchManners::Silent), change(wanted), quiet(options.quiet),
          shows(wanted.set == 0 && wanted.clear == 0)
    {}

    void Take(const FILESEARCH& search)
    {
        const std::uint32_t before = search.file.facts.attributes;
        if (!shows) {
            Change(search, before);
            return;
        }
        ThrowIfBroken();
        if (!quiet)
            PrintLine(Format(u"%-12s %s", AttributeLetters(before), search.fullName));
    }

    unsigned Totals() const { return shows ? 0 : message::filesChanged; }
    int Finish()
    {
        if (shows && work.Errors() == 0)
            return result::success;
        return shows ? work.FinishQuietly() : work.Finish(Totals());
    }

    FileWork work;

private:
    void Change(const FILESEARCH& search, std::uint32_t before)
    {
        const std::uint32_t after = (before & ~change.clear) | change.set;
        if (!work.Wants(message::askAttributes, search.name))
            return;
        if (after != before && !work.Pretends()) {
            if (const unsigned failed = ChangeAttributes(search.fullName, after)) {
                work.Failed(failed, search.name);
                return;
            }
            NotifyOfChange(FolderChange::FileUpdated, search.fullName);
        }
        const CString letters = AttributeLetters(after);
        search.file.facts.IsDirectory() ? work.DidDirectory(message::nameAlone, search.name, letters)
                                        : work.Did(message::nameAlone, search.name, letters);
    }

    AttributeChange change;
    bool quiet;
    bool shows;
};

// Takes the words that begin with "+" or "-" out of the arguments. 0, or the result of a reported error.
int TakeChanges(std::vector<CString>& words, AttributeChange& change)
{
    for (auto word = words.begin(); word != words.end();) {
        if (!word->view().starts_with(u'+') && !word->view().starts_with(u'-')) {
            ++word;
            continue;
        }
        // "-rh" clears both: the sign counts until the next one.
        CString spelled;
        char16_t sign = u'+';
        for (const char16_t unit : word->view()) {
            if (unit == u'+' || unit == u'-')
                sign = unit;
            else
                spelled.Append(sign).Append(unit);
        }
        const std::optional<AttributeChange> one = ReadAttributeChange(spelled);
        if (!one || spelled.empty())
            return MVError(errors::invalidAttribute, *word);
        change.set = (change.set | one->set) & ~one->clear;
        change.clear = (change.clear & ~one->set) | one->clear;
        word = words.erase(word);
    }
    return result::success;
}

} // namespace

int Attrib_Command(CString& arguments)
{
    FILESEARCH search;
    search.attributes = AttributeMasks::Everything();
    FileWorkOptions options;
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, u"DS", search, options, flags))
        return code;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    AttributeChange change;
    if (const int code = TakeChanges(names, change))
        return code;
    if (names.empty())
        names.emplace_back(u"*");
    if ((flags & 2) != 0)
        search.deepest = allLevels;
    const AttributeMasks masks = search.attributes;
    Attributes attributes(options, change);
    const auto all = [&] {
        for (const CString& name : names) {
            search.attributes = masks;
            const bool takesDirectories =
                (flags & 1) != 0 || (masks.required & file_attribute::directory) != 0 || !PicksByForm(name);
            if (!takesDirectories)
                search.attributes.forbidden |= file_attribute::directory;
            if (!attributes.work.ForEachFile(search, name, [&] { attributes.Take(search); }))
                attributes.work.Failed(ERROR_FILE_NOT_FOUND, WithoutQuotes(name));
        }
    };
    attributes.work.Do(all, attributes.Totals());
    return attributes.Finish();
}
