#include "files/file_search.h"

#include <deque>

#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_source.h"
#include "files/search_names.h"
#include "files/text_reader.h"
#include "lang/file_messages.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr unsigned fileNotFound = 2;
constexpr unsigned invalidParameter = 87;

RegexSyntax SyntaxOfRegexes() { return static_cast<RegexSyntax>(aIniFile.RegularExpressions); }

// A directory to be walked.
struct Plan {
    CString shown;
    WalkRequest request;
    bool listed = false; // by a line of a list
};

bool MayBeMisread(const SearchName& name)
{
    return !name.IsRegex() && !HasWildcards(name.text) &&
           (name.text.view().find_first_of(u"[=") != CString::npos || name.text.view().ends_with(u'.'));
}

// The pattern that takes this very name: "[" opens no set, "=" ends nothing, "." is no missing extension.
CString VeryName(const CString& name)
{
    CString pattern(u"\"");
    for (const char16_t unit : name.view()) {
        if (unit == u'[' || unit == u'.')
            pattern.Append(u'[').Append(unit).Append(u']');
        else
            pattern.Append(unit);
    }
    return pattern.Append(u'"');
}

} // namespace

struct SearchState {
    explicit SearchState(const FILESEARCH& search)
        : directories(search.shortNames || aIniFile.Win32SFNSearch != 0)
    {}

    SystemDirectories directories;
    SystemRangeClock clock;
    std::deque<Plan> plans;
    CString shownRoot;
    std::size_t rootLength = 0; // of the full name that shownRoot stands for
    bool literal = false;
    CString listed; // the one file that a line of a list names, as it is told
    std::unique_ptr<FileWalk> walk;
    // For FindFiles.
    SearchedDirectory current;
    std::size_t nextFile = 0;
};

namespace {

void Note(FILESEARCH& search, unsigned code, std::u16string_view name)
{
    if (search.error == 0) {
        search.error = code;
        search.failed = name;
    } else {
        search.laterFailures.push_back({code, name});
    }
}

class Planner {
public:
    Planner(FILESEARCH& forSearch, SearchState& target) : search(forSearch), state(target) {}

    // "@name" is a list of names, unless a file is called that.
    void AddArgument(std::u16string_view argument)
    {
        const CString bare = WithoutOuterQuotes(argument);
        if (bare.front() == u'@' && bare.size() > 1 && !ReadFileAttributes(bare))
            AddList(bare.Substr(1));
        else
            AddNames(argument);
    }

private:
    void AddList(const CString& listName)
    {
        TextReader reader;
        if (!reader.Open(listName))
            return Fail(GetLastError(), listName);
        readsList = true;
        CString piece;
        CString rest; // of a line that goes on in the next piece
        while (reader.Read(piece) && !piece.empty()) {
            rest.Append(piece);
            for (std::size_t end = rest.Find(u'\n'); end != CString::npos; end = rest.Find(u'\n')) {
                AddLine(rest.Substr(0, end));
                rest.Erase(0, end + 1);
            }
        }
        AddLine(rest);
    }

    void AddLine(CString line)
    {
        line.TrimRight(u" \t\r\n");
        // A file's name may begin with blanks or hold the sign that parts names.
        const bool doubtful = line.Find(u';') != CString::npos || (!line.empty() && IsBlank(line.front()));
        if (doubtful && ReadFileAttributes(line))
            line.Insert(0, u"\"").Append(u'"');
        if (!line.TrimLeft(u" \t").empty())
            AddNames(line);
    }

    void AddNames(std::u16string_view argument)
    {
        for (SearchTarget& target : SplitSearchNames(argument))
            AddTarget(target);
    }

    void AddTarget(const SearchTarget& target)
    {
        if (HasWildcards(target.directory))
            return Fail(errors::wildcardDirectory, JoinPath(target.directory, target.names.front().text));
        Plan plan = PlanFor(target.directory);
        for (const SearchName& name : target.names) {
            const CString path = JoinPath(target.directory, name.text);
            if (TakesAll(name))
                NoteWhole(name.text.empty() ? JoinPath(path, u"*") : path);
            if (MeansContents(name, path)) {
                NoteWhole(JoinPath(path, u"*"));
                Plan inside = PlanFor(path + u"\\");
                inside.request.patterns.push_back(MakePattern(u"*"));
                state.plans.push_back(std::move(inside));
            } else if (search.deepest == 0 && target.names.size() == 1 && name.IsLiteral()) {
                plan.request.literalName = name.text;
            } else {
                const bool veryName =
                    MayBeMisread(name) && ReadFileAttributes(PathOfEntry(plan.request.directory, name.text));
                auto pattern = MakePattern(veryName ? VeryName(name.text) : name.Pattern());
                if (!pattern->IsValid())
                    return Fail(invalidParameter, name.text);
                plan.request.patterns.push_back(std::move(pattern));
            }
        }
        if (!plan.request.patterns.empty() || !plan.request.literalName.empty())
            state.plans.push_back(std::move(plan));
    }

    static bool TakesAll(const SearchName& name)
    {
        const std::u16string_view text = name.text;
        const bool stars = text.find(u'*') != text.npos && text.find_first_not_of(u"*?") == text.npos;
        return text.empty() || text == u"*.*" || stars;
    }

    void NoteWhole(const CString& all)
    {
        if (search.whole.empty())
            search.whole = all;
    }

    bool MeansContents(const SearchName& name, const CString& path) const
    {
        if (name.text.empty() || name.IsRegex() || HasWildcards(name.text))
            return false;
        return name.text == u"." || name.text == u".." || (search.intoDirectories && QueryIsDirectory(path));
    }

    Plan PlanFor(const CString& shown) const
    {
        Plan plan;
        plan.shown = shown;
        plan.listed = readsList;
        plan.request.directory = FullPathName(shown.empty() ? CString(u".") : shown);
        if (!IsPathSeparator(plan.request.directory.back()))
            plan.request.directory.Append(u'\\');
        plan.request.attributes = search.attributes;
        plan.request.ranges = &search.ranges;
        plan.request.deepest = search.deepest;
        plan.request.followsLinks = aIniFile.DirJunctions != 0 && !search.avoidsLinks;
        plan.request.dots = search.dots;
        return plan;
    }

    static std::shared_ptr<NamePattern> MakePattern(std::u16string_view pattern)
    {
        return std::make_shared<NamePattern>(pattern, SyntaxOfRegexes());
    }

    void Fail(unsigned code, std::u16string_view name) const { Note(search, code, name); }

    FILESEARCH& search;
    SearchState& state;
    bool readsList = false;
};

bool StartNextWalk(SearchState& state)
{
    if (state.plans.empty())
        return false;
    Plan plan = std::move(state.plans.front());
    state.plans.pop_front();
    state.shownRoot = plan.shown;
    state.rootLength = plan.request.directory.size();
    state.literal = !plan.request.literalName.empty();
    state.listed = plan.listed && state.literal ? plan.shown + plan.request.literalName : CString();
    state.walk = std::make_unique<FileWalk>(std::move(plan.request), state.directories, state.clock);
    return true;
}

} // namespace

FILESEARCH::FILESEARCH() = default;
FILESEARCH::~FILESEARCH() = default;

int GetRange(CString& arguments, RANGES* ranges, int onlyLeading)
{
    SystemRangeClock clock;
    const RangeReading reading{clock, CurrentSyntax(), Country().dateOrder, SyntaxOfRegexes(),
                               [](CString& text) { return VariableExpansion(text); }};
    const int code = TakeRanges(arguments, *ranges, onlyLeading != 0, reading);
    return code == 0 || code == result::error ? code : error(code, arguments);
}

void StartSearch(FILESEARCH& search, std::u16string_view name)
{
    search.error = 0;
    search.failed.Clear();
    search.whole.Clear();
    search.laterFailures.clear();
    search.state = std::make_unique<SearchState>(search);
    Planner(search, *search.state).AddArgument(name);
}

void ForEachFailure(const FILESEARCH& search, const std::function<void(unsigned, const CString&)>& tell)
{
    if (search.error != 0)
        tell(search.error, search.failed);
    for (const FILESEARCH::Failure& later : search.laterFailures)
        tell(later.error, later.failed);
}

bool NextDirectory(FILESEARCH& search, SearchedDirectory& directory)
{
    if (!search.state)
        return false;
    SearchState& state = *search.state;
    for (;;) {
        if (!state.walk && !StartNextWalk(state))
            return false;
        if (state.walk->Next(directory.found))
            break;
        state.walk.reset();
    }
    // Of an argument the caller sees that nothing was found; that of a list goes on with the next line.
    if (!state.listed.empty() && directory.found.files.empty() && directory.found.error == 0 &&
        !ReadFileAttributes(state.listed)) {
        directory.found.error = fileNotFound;
        directory.found.name = state.listed;
        directory.shown = state.listed;
        Note(search, fileNotFound, state.listed);
        return true;
    }
    directory.shown = state.shownRoot + directory.found.name.view().substr(state.rootLength);
    directory.literal = state.literal;
    if (directory.found.error != 0)
        Note(search, directory.found.error, directory.found.name);
    return true;
}

bool FindFiles(FILESEARCH& search, std::u16string_view name)
{
    StartSearch(search, name);
    return FindFiles(search);
}

bool FindFiles(FILESEARCH& search)
{
    if (!search.state)
        return false;
    SearchState& state = *search.state;
    while (state.nextFile == state.current.found.files.size()) {
        state.nextFile = 0;
        state.current.found.files.clear();
        if (!NextDirectory(search, state.current))
            return false;
    }
    search.file = std::move(state.current.found.files[state.nextFile++]);
    search.name = JoinPath(state.current.shown, search.file.name);
    search.fullName = PathOfEntry(state.current.found.name, search.file.name);
    search.literal = state.current.literal;
    return true;
}

void CloseDirSearchHandles(FILESEARCH& search) { search.state.reset(); }
