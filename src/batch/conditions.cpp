#include "batch/conditions.h"

#include "batch/condition_parser.h"
#include "batch/label_search.h"
#include "batch/window_tests.h"
#include "core/command_lookup.h"
#include "engine/condition_entry.h"
#include "engine/country.h"
#include "engine/expansion_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "engine/tables.h"
#include "expand/lists.h"
#include "files/regex.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "platform/handle.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

bool Exists(std::u16string_view name)
{
    if (HasWildcards(name)) {
        WIN32_FIND_DATAW data;
        return static_cast<bool>(OwnedFindHandle(FindFirstFileW(SystemPath(name).w(), &data)));
    }
    // "dir\nul" is the old way of asking for a directory.
    if (EndsNoCase(name, u"\\nul"))
        return QueryIsDirectory(name.substr(0, name.size() - 3));
    if (name == u"\\")
        return QueryIsDirectory(name);
    return IsDeviceName(name) || ReadFileAttributes(name).has_value();
}

bool IsSymbolicLink(std::u16string_view name)
{
    const auto attributes = ReadFileAttributes(name);
    if (!attributes || (*attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return false;
    WIN32_FIND_DATAW data;
    const OwnedFindHandle found(FindFirstFileW(SystemPath(name).w(), &data));
    return found && data.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

bool CanOpen(std::u16string_view name, DWORD access)
{
    constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return static_cast<bool>(OwnedHandle(CreateFileW(SystemPath(name).w(), access, sharing, nullptr,
                                                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)));
}

bool IsBatchName(std::u16string_view name)
{
    const std::u16string_view extension = ExtensionPart(name);
    return EqualNoCase(extension, u".btm") || EqualNoCase(extension, u".bat") ||
           EqualNoCase(extension, u".cmd");
}

bool IsDefined(std::u16string_view name)
{
    constexpr const char16_t* always[] = {u"CMDCMDLINE", u"CMDEXTVERSION", u"RANDOM",
                                          u"TIME",       u"DATE",          u"CD"};
    for (const char16_t* known : always)
        if (EqualNoCase(name, known))
            return true;
    return IsInEnvironment(name);
}

// The search leaves the frame as it was.
bool IsLabel(std::u16string_view name)
{
    BATCH_FRAME* frame = Tls().Frame();
    if (!frame)
        return false;
    const std::int64_t offset = frame->readOffset;
    const unsigned lineNumber = frame->lineNumber;
    const bool found = FindLabel(name, LabelSearch::Silent) == 0;
    frame->readOffset = offset;
    frame->lineNumber = lineNumber;
    return found;
}

class ShellWorld : public ConditionWorld {
public:
    bool Expand(CString& word) override
    {
        const bool references = word.Find(u'%') != CString::npos ||
                                (aGlobals.delayedExpansion != 0 && word.Find(u'!') != CString::npos);
        return !references || VariableExpansion(word, true) == 0;
    }

    bool Test(ConditionTest test, std::u16string_view argument) override
    {
        CString value;
        switch (test) {
        case ConditionTest::Exist: return Exists(argument);
        case ConditionTest::IsFile: return QueryIsFile(argument);
        case ConditionTest::IsDirectory: return QueryIsDirectory(argument);
        case ConditionTest::IsInternal: return FindRow(aInternalCommands, nInternalCommands, argument) >= 0;
        case ConditionTest::IsAlias: return GetAlias(argument, value);
        case ConditionTest::IsFunction: return GetFunction(argument, value);
        case ConditionTest::IsBatch: return IsBatchName(argument);
        case ConditionTest::IsLabel: return IsLabel(argument);
        case ConditionTest::Defined: return IsDefined(argument);
        case ConditionTest::ExtensionVersion: return true;
        case ConditionTest::IsSymbolicLink: return IsSymbolicLink(argument);
        case ConditionTest::IsReadable: return CanOpen(argument, GENERIC_READ);
        case ConditionTest::IsWriteable: return CanOpen(argument, GENERIC_READ | GENERIC_WRITE);
        case ConditionTest::IsVisible: return WindowIs(argument, WindowTest::Visible);
        case ConditionTest::IsWindow: return WindowIs(argument, WindowTest::Exists);
        case ConditionTest::IsHung: return WindowIs(argument, WindowTest::Hung);
        case ConditionTest::IsApplication: return ApplicationRuns(argument);
        case ConditionTest::IsPlugin:
        case ConditionTest::Plugin:
        case ConditionTest::IsLibrary: return false; // none can be loaded yet
        }
        return false;
    }

    int ErrorLevel() override { return Tls().errorLevel; }

    int CompareNumbers(std::u16string_view left, std::u16string_view right) override
    {
        const char16_t* pattern =
            right.front() == u'-' || right.front() == u'+' ? u"%s-(%s)=0.%d" : u"%s-%s=0.%d";
        CString difference = Format(pattern, left, right, static_cast<int>(aIniFile.EvalMax));
        if (EvaluateExpression(difference) != 0)
            return CompareNoCase(left, right);
        if (difference.front() == u'-')
            return -1;
        return difference == u"0" ? 0 : 1;
    }

    std::optional<bool> Matches(std::u16string_view text, std::u16string_view pattern) override
    {
        const Regex regex(pattern, static_cast<RegexSyntax>(aIniFile.RegularExpressions),
                          RegexMatch::Anywhere);
        if (!regex.IsValid())
            return std::nullopt;
        return regex.Search(text);
    }
};

} // namespace

int TestCondition(CString& text, ConditionMode mode)
{
    ConditionRules rules;
    rules.syntax = CurrentSyntax();
    rules.decimalChar = Country().decimal;
    rules.needsCommand = mode == ConditionMode::If;
    rules.bareNumber = mode == ConditionMode::Iff;
    ShellWorld world;
    return ParseCondition(text, rules, world);
}

int TestExpandedCondition(CString& text)
{
    ConditionRules rules;
    rules.syntax = CurrentSyntax();
    rules.decimalChar = Country().decimal;
    rules.expand = false;
    ShellWorld world;
    return ParseCondition(text, rules, world);
}
