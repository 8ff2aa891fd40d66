#include "console/completion_files.h"

#include <algorithm>

#include "files/directory_name.h"
#include "files/wildcards.h"
#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

struct NamedEntry {
    CString name;
    bool directory = false;
};

// Whether names go on from what has been typed.
class TypedName {
public:
    TypedName(std::u16string_view typed, bool caseSensitive)
        : text(typed), caseCounts(caseSensitive), wild(HasWildcards(typed))
    {}

    bool Matches(std::u16string_view name) const
    {
        if (wild)
            return WildcardComparison(text, name, true, false) == 0;
        return caseCounts ? name.starts_with(text) : BeginsNoCase(name, text);
    }

private:
    CString text;
    bool caseCounts;
    bool wild;
};

class Picking : public EntrySink {
public:
    Picking(std::u16string_view typed, const FileChoice& fileChoice, const CompletionSettings& inForce)
        : name(typed, inForce.filesCaseSensitive), choice(fileChoice), settings(inForce)
    {}

    void Take(const DirectoryEntry& entry) override
    {
        if (entry.name == u"." || entry.name == u"..")
            return;
        const bool directory = entry.facts.IsDirectory();
        const bool hidden = (entry.facts.attributes & file_attribute::hidden) != 0;
        if (hidden && !(directory ? settings.completeHiddenDirs : settings.completeHiddenFiles))
            return;
        if (!(directory ? choice.directories : choice.files))
            return;
        const bool shortMatch =
            settings.shortNames && !entry.shortName.empty() && name.Matches(entry.shortName);
        if ((name.Matches(entry.name) || shortMatch) && (directory || HasExtension(entry.name)))
            found.push_back(
                {choice.shortNames && !entry.shortName.empty() ? entry.shortName : entry.name, directory});
    }

    std::vector<NamedEntry> Sorted()
    {
        const auto before = [](const NamedEntry& a, const NamedEntry& b) {
            return CompareNoCase(a.name, b.name) < 0;
        };
        // NTFS tells the names in this order.
        if (!std::is_sorted(found.begin(), found.end(), before))
            std::sort(found.begin(), found.end(), before);
        return std::move(found);
    }

private:
    bool HasExtension(std::u16string_view file) const
    {
        if (!choice.extensions)
            return true;
        std::u16string_view extension = ExtensionPart(file);
        extension.remove_prefix(extension.empty() ? 0 : 1);
        return std::any_of(choice.extensions->begin(), choice.extensions->end(), [&](const CString& wanted) {
            return EqualNoCase(wanted, extension) ||
                   (HasWildcards(wanted) && WildcardComparison(wanted, extension, false, true) == 0);
        });
    }

    TypedName name;
    const FileChoice& choice;
    const CompletionSettings& settings;
    std::vector<NamedEntry> found;
};

std::vector<NamedEntry> ReadNames(std::u16string_view folder, std::u16string_view typed,
                                  const FileChoice& choice, CompletionWorld& world)
{
    Picking picking(typed, choice, world.Settings());
    CString directory(folder);
    if (!directory.empty() && !IsPathSeparator(directory.back()))
        directory += u'\\';
    // The system passes over what does not begin so much faster than we could.
    const CString asked = HasWildcards(typed) ? CString(u"*") : CString(typed) + u"*";
    world.Directories(choice.shortNames || world.Settings().shortNames).Read(directory, asked, picking);
    return picking.Sorted();
}

// "%" in the name of a file would begin a reference.
CString DoublePercents(CString name)
{
    for (std::size_t at = name.Find(u'%'); at != npos; at = name.Find(u'%', at + 2))
        name.Insert(at, u"%");
    return name;
}

// "~" and "...", which most programs do not know, become what they stand for.
CString SpellDirectory(std::u16string_view typed, CompletionWorld& world)
{
    CString directory(typed);
    if (typed.size() >= 2 && typed[0] == u'~' && IsPathSeparator(typed[1]))
        if (const CString home = world.HomeDirectory(); !home.empty())
            directory.Replace(0, 1, WithoutEndSeparators(home));
    return directory.Find(u"...") == npos ? directory : CleanDirectoryName(directory);
}

char16_t SeparatorOf(std::u16string_view directory)
{
    const std::size_t last = directory.find_last_of(u"\\/");
    return last == npos ? u'\\' : directory[last];
}

CString Quoted(std::u16string_view name)
{
    CString quoted;
    quoted.Reserve(name.size() + 2);
    return quoted.Append(u'"').Append(name).Append(u'"');
}

CString ShownName(const NamedEntry& entry) { return entry.directory ? entry.name + u"\\" : entry.name; }

// "\\", "\\machine", "\\machine\share": names of the network. False for any other text.
bool AddNetworkNames(const CompletionWord& word, CompletionWorld& world,
                     std::vector<CompletionCandidate>& candidates)
{
    const std::u16string_view text = word.text;
    if (!text.starts_with(u"\\\\") || text.starts_with(u"\\\\?") || text.starts_with(u"\\\\."))
        return false;
    const std::size_t separator = text.find(u'\\', 2);
    if (separator != npos && text.find(u'\\', separator + 1) != npos)
        return false;
    const CString machine(text.substr(2, separator == npos ? 0 : separator - 2));
    const std::u16string_view typed = text.substr(separator == npos ? 2 : separator + 1);
    std::vector<CString> names = separator == npos ? world.Machines() : world.Shares(machine);
    std::sort(names.begin(), names.end(),
              [](const CString& a, const CString& b) { return CompareNoCase(a, b) < 0; });
    for (const CString& name : names)
        if (BeginsNoCase(name, typed)) {
            const CString full = CString(text.substr(0, text.size() - typed.size())) + name.view();
            candidates.push_back({SpellCandidate(full, word), name, true, {}});
        }
    return true;
}

bool IsUpward(std::u16string_view name) { return name.size() > 1 && name.find_first_not_of(u'.') == npos; }

// ".." and "..." are directories that no listing holds; "..\\" is what goes on from there.
void AddUpward(const CompletionWord& word, CompletionWorld& world,
               std::vector<CompletionCandidate>& candidates)
{
    const char16_t separator = SeparatorOf(DirectoryPart(word.text));
    CString typed(word.text);
    CString name = SpellDirectory(typed += separator, world);
    if (world.Settings().completePaths) {
        name = world.FullName(CleanDirectoryName(world.ExpandVariables(name)));
        if (!name.empty() && !IsPathSeparator(name.back()))
            name += separator;
    }
    candidates.push_back({SpellCandidate(name, word), name, true, {}});
}

} // namespace

CString SpellCandidate(const CString& name, const CompletionWord& word)
{
    if (word.inBrackets)
        return !word.quoted && name.view().find_first_of(u",]") == npos ? name : Quoted(name);
    // A reference needs no quotes by itself.
    CString marks(name);
    for (std::size_t at = marks.Find(u'%'); at != npos; at = marks.Find(u'%', at))
        marks.Set(at, u'_');
    return word.quoted || NeedsQuotes(marks) ? Quoted(name) : name;
}

void AddFileNames(const CompletionWord& word, const FileChoice& choice, CompletionWorld& world,
                  std::vector<CompletionCandidate>& candidates)
{
    if (AddNetworkNames(word, world, candidates))
        return;
    const CString directory = SpellDirectory(DirectoryPart(word.text), world);
    CString shown(directory);
    CString folder = world.FullName(CleanDirectoryName(world.ExpandVariables(directory)));
    if (directory.empty())
        folder = world.FullName(u".");
    if (world.Settings().completePaths) {
        shown = folder;
        if (!shown.empty() && !IsPathSeparator(shown.back()))
            shown += u'\\';
    }
    const CString typed = world.ExpandVariables(FileNamePart(word.text));
    std::vector<NamedEntry> entries = ReadNames(folder, typed, choice, world);
    candidates.reserve(candidates.size() + entries.size());
    if (choice.directories && IsUpward(typed))
        AddUpward(word, world, candidates);
    for (const NamedEntry& entry : entries) {
        CString name = DoublePercents(entry.name);
        if (!shown.empty())
            name = shown + name.view();
        if (entry.directory && world.Settings().appendToDir)
            name += SeparatorOf(directory);
        candidates.push_back({SpellCandidate(name, word), ShownName(entry), entry.directory, {}});
    }
}

void AddFolderFiles(std::u16string_view folder, const CompletionWord& word, const FileChoice& choice,
                    CompletionWorld& world, std::vector<CompletionCandidate>& candidates)
{
    for (const NamedEntry& entry : ReadNames(folder, word.text, choice, world))
        candidates.push_back({SpellCandidate(DoublePercents(entry.name), word), entry.name, false, {}});
}
