#include "commands/touch.h"

#include <windows.h>

#include "commands/file_work.h"
#include "core/command_switches.h"
#include "engine/country.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/dates.h"
#include "files/search_names.h"
#include "lang/file_messages.h"
#include "platform/clock.h"
#include "platform/file_changes.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "text/path_names.h"
#include "text/words.h"

const CommandHelp touchHelp = {
    u"Sets the times of files, and makes empty files.",
    u"TOUCH [range ...] [/A[:]attributes] [/C] [/D[acw]date] [/T[acw]time] [/R[:]file] [/E] [/F] [/N] [/P] "
    u"[/Q] [/S] file ...",
    u"/A  files with attributes, as DIR /A tells\n"
    u"/C  make files that do not exist\n"
    u"/D  the date, of the last write, or with a, c or w of the last access, the creation or the last "
    u"write\n"
    u"/E  show no error messages\n"
    u"/F  read-only files too\n"
    u"/N  change nothing, show only what would be done\n"
    u"/P  ask before each file: Y yes, N no, R the rest without asking, Esc or Q no more\n"
    u"/Q  show neither names nor totals\n"
    u"/R  take date and time from another file\n"
    u"/S  in all subdirectories too\n"
    u"/T  the time of day, as /D\n"
    u"Without /D, /T and /R files are written now. With /D alone they keep their time of day, with /T alone "
    u"their date. Wildcards mean files, with /AD directories. The result counters are %_touch_files, "
    u"%_touch_dirs and %_touch_errors.",
    u"touch *.c\n"
    u"touch /c new.txt\n"
    u"touch /d2026-01-31 /t12:00 report.doc\n"
    u"touch /dc2020-01-01 /r:old.txt new.txt",
};

namespace {

constexpr std::uint64_t ticksPerSecond = 10'000'000;
constexpr std::uint64_t ticksPerDay = 86'400 * ticksPerSecond;

enum Which { written, accessed, created };

// What is to become of one of a file's times: parts that are not told stay.
struct TimeChange {
    std::optional<std::uint64_t> day;  // local, in ticks
    std::optional<std::uint64_t> time; // of the day, in ticks

    bool Empty() const { return !day && !time; }
    std::uint64_t Apply(std::uint64_t before) const
    {
        LocalFileTimes times;
        const std::uint64_t local = times.Convert(before);
        const std::uint64_t dayPart = day.value_or(local - local % ticksPerDay);
        return UniversalFileTime(dayPart + time.value_or(local % ticksPerDay));
    }
};

struct TouchOptions {
    TimeChange changes[3]; // by Which
    std::optional<FileFacts> reference;
    bool creates = false;
    bool readOnly = false;
};

NewFileTimes TimesFor(const TouchOptions& options, std::uint64_t wasWritten, std::uint64_t wasAccessed,
                      std::uint64_t wasCreated)
{
    NewFileTimes times;
    if (options.reference) {
        times.written = FileTimeNumber(options.reference->written);
        times.accessed = FileTimeNumber(options.reference->accessed);
        times.created = FileTimeNumber(options.reference->created);
    }
    const std::uint64_t before[] = {wasWritten, wasAccessed, wasCreated};
    std::uint64_t* const after[] = {&times.written, &times.accessed, &times.created};
    bool any = options.reference.has_value();
    for (const Which which : {written, accessed, created})
        if (const TimeChange& change = options.changes[which]; !change.Empty()) {
            *after[which] = change.Apply(*after[which] ? *after[which] : before[which]);
            any = true;
        }
    if (!any)
        times.written = times.accessed = FileTimeNow();
    return times;
}

// Takes the letter for one of the times off the front of a switch's text.
Which TakeWhich(std::u16string_view& text)
{
    if (text.starts_with(u':'))
        text.remove_prefix(1);
    const char16_t letter = text.empty() ? u'\0' : LowerCase(text[0]);
    if (letter != u'a' && letter != u'c' && letter != u'w')
        return written;
    text.remove_prefix(1);
    return letter == u'a' ? accessed : letter == u'c' ? created : written;
}

// Takes /D and /T out of the arguments. 0, or the result of a reported error.
int TakeTimes(CString& arguments, TouchOptions& options)
{
    CString text;
    while (TakeSwitchText(arguments, u"D", text)) {
        std::u16string_view date = text;
        TimeChange& change = options.changes[TakeWhich(date)];
        const std::optional<calendar::Date> day = ParseDate(date, Country().dateOrder);
        if (!day || day->year < 1601)
            return MVError(errors::invalidDate, text);
        const std::int64_t days = calendar::DayNumber(*day) - calendar::DayNumber({1601, 1, 1});
        change.day = static_cast<std::uint64_t>(days) * ticksPerDay;
    }
    while (TakeSwitchText(arguments, u"T", text)) {
        std::u16string_view time = text;
        TimeChange& change = options.changes[TakeWhich(time)];
        const std::optional<TimeOfDay> parsed = ParseTime(time);
        if (!parsed)
            return MVError(errors::invalidTime, text);
        const int seconds = (parsed->hour * 60 + parsed->minute) * 60 + parsed->second;
        change.time = static_cast<std::uint64_t>(seconds) * ticksPerSecond +
                      static_cast<std::uint64_t>(parsed->millisecond) * (ticksPerSecond / 1000);
    }
    return result::success;
}

int TakeReference(CString& arguments, TouchOptions& options)
{
    CString name;
    if (!TakeSwitchText(arguments, u"R", name))
        return result::success;
    if (name.view().starts_with(u':'))
        name.Erase(0, 1);
    if (name.empty())
        return UsageError();
    options.reference = ReadFileFacts(WithoutQuotes(name));
    return options.reference ? result::success : MVError(0, name);
}

class Touching {
public:
    Touching(const FileWorkOptions& workOptions, const TouchOptions& touchOptions)
        : work(u"touch", workOptions, BatchManners::Silent), options(touchOptions)
    {}

    void TouchAll(FILESEARCH& search, const CString& argument)
    {
        bool any = work.ForEachFile(search, argument, [&] {
            const EntryFacts& facts = search.file.facts;
            if (work.Wants(message::askTouch, search.name))
                Touch(search.fullName, search.name, facts.attributes,
                      TimesFor(options, facts.written, facts.accessed, facts.created));
        });
        const bool foundBelow = any && search.deepest > 0;
        if (options.creates && !foundBelow && argument.front() != u'@')
            for (const SearchTarget& target : SplitSearchNames(argument))
                for (const SearchName& name : target.names)
                    any = CreateMissing(target.directory, name) || any;
        if (!any)
            work.Failed(ERROR_FILE_NOT_FOUND, WithoutQuotes(argument));
    }

    FileWork work;

private:
    // Whether the name is one to be made. What is there but was not chosen is not; where there is no
    // directory the search has said so.
    bool CreateMissing(const CString& directory, const SearchName& file)
    {
        const CString name = JoinPath(directory, file.text);
        const bool missing = !file.text.empty() && !file.IsRegex() && !HasWildcards(file.text) &&
                             (directory.empty() || QueryIsDirectory(directory)) && !ReadFileAttributes(name);
        if (missing)
            Create(name);
        return missing;
    }

    void Create(const CString& name)
    {
        if (!work.Wants(message::askTouch, name))
            return;
        const std::uint64_t now = FileTimeNow();
        if (!work.Pretends())
            if (const unsigned failed = CreateEmptyFile(name)) {
                work.Failed(failed, name);
                return;
            }
        Touch(name, name, 0, TimesFor(options, now, now, now));
    }

    void Touch(const CString& fullName, const CString& shown, std::uint32_t attributes,
               const NewFileTimes& times)
    {
        const bool isDirectory = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (const unsigned failed = Change(fullName, attributes, times)) {
            work.Failed(failed, shown);
            return;
        }
        isDirectory ? work.DidDirectory(message::nameAlone, shown) : work.Did(message::nameAlone, shown);
        if (!work.Pretends())
            NotifyOfChange(FolderChange::FileUpdated, fullName);
    }

    unsigned Change(const CString& name, std::uint32_t attributes, const NewFileTimes& times)
    {
        constexpr std::uint32_t readOnly = FILE_ATTRIBUTE_READONLY;
        const bool isProtected = (attributes & readOnly) != 0 && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        if (isProtected && !options.readOnly)
            return ERROR_ACCESS_DENIED;
        if (work.Pretends())
            return 0;
        if (!isProtected)
            return ChangeFileTimes(name, times);
        if (const unsigned failed = ChangeAttributes(name, attributes & ~readOnly))
            return failed;
        const unsigned failed = ChangeFileTimes(name, times);
        const unsigned notRestored = ChangeAttributes(name, attributes);
        return failed ? failed : notRestored;
    }

    const TouchOptions& options;
};

} // namespace

int Touch_Command(CString& arguments)
{
    FILESEARCH search;
    FileWorkOptions workOptions;
    TouchOptions options;
    if (const int code = GetRange(arguments, &search.ranges, 0))
        return code;
    if (const int code = TakeTimes(arguments, options))
        return code;
    if (const int code = TakeReference(arguments, options))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadFileWork(arguments, u"CFS", search, workOptions, flags))
        return code;
    const std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        return UsageError();
    options.creates = (flags & 1) != 0;
    options.readOnly = (flags & 2) != 0;
    if ((flags & 4) != 0)
        search.deepest = allLevels;
    const AttributeMasks masks = search.attributes;
    Touching touching(workOptions, options);
    const auto all = [&] {
        for (const CString& name : names) {
            search.attributes = MasksFor(name, search, masks);
            touching.TouchAll(search, name);
        }
    };
    touching.work.Do(all, 0);
    return touching.work.Finish(0);
}
