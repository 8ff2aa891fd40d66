// How alike two texts are, and which of two versions is the later one.
#include "functions/families.h"

#include <algorithm>
#include <vector>

#include "functions/answers.h"
#include "functions/arguments.h"
#include "text/compare.h"

namespace {

using View = std::u16string_view;

// The work and the memory grow with the product of both lengths; this many steps take a tenth of a second.
constexpr std::size_t mostSteps = std::size_t{1} << 24;

bool IsTooMuch(View a, View b) { return !a.empty() && b.size() > mostSteps / a.size(); }

// How many characters must be changed, added or left out to make one text the other.
std::size_t EditDistance(View a, View b)
{
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row[b.size()];
}

// The longest text whose characters stand in both, in this order; those of `a` are taken.
CString CommonSubsequence(View a, View b)
{
    CString foldedA(a);
    CString foldedB(b);
    MakeUpper(foldedA);
    MakeUpper(foldedB);
    // lengths[i][j] is for the texts from a[i] and b[j] on; only two rows are needed to find the way.
    enum Way : std::uint8_t { Both, SkipA, SkipB };
    std::vector<Way> ways(a.size() * b.size());
    std::vector<std::size_t> below(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t i = a.size(); i-- > 0; std::swap(below, row)) {
        for (std::size_t j = b.size(); j-- > 0;) {
            const bool same = foldedA[i] == foldedB[j];
            const Way way = same ? Both : below[j] >= row[j + 1] ? SkipA : SkipB;
            row[j] = same ? below[j + 1] + 1 : std::max(below[j], row[j + 1]);
            ways[i * b.size() + j] = way;
        }
    }
    CString common;
    for (std::size_t i = 0, j = 0; i < a.size() && j < b.size();) {
        const Way way = ways[i * b.size() + j];
        if (way == Both)
            common.Append(a[i]);
        i += way != SkipB ? 1 : 0;
        j += way != SkipA ? 1 : 0;
    }
    return common;
}

// One step of a version: a number, or letters such as "beta"; neither at the end.
struct VersionStep {
    bool ended = false;
    View digits; // without leading zeros; "0" is empty
    View letters;
};

VersionStep NextStep(View& version)
{
    version.remove_prefix(std::min(version.find_first_not_of(u" .-_"), version.size()));
    VersionStep step;
    step.ended = version.empty() || version[0] == u'+'; // what follows "+" tells how it was built
    const bool isNumber = !step.ended && IsDigit(version[0]);
    std::size_t end = 0;
    while (!step.ended && end < version.size() && IsDigit(version[end]) == isNumber &&
           View(u" .-_+").find(version[end]) == View::npos)
        ++end;
    (isNumber ? step.digits : step.letters) = version.substr(0, end);
    step.digits.remove_prefix(std::min(step.digits.find_first_not_of(u'0'), step.digits.size()));
    version.remove_prefix(end);
    return step;
}

int Sign(std::int64_t number) { return number < 0 ? -1 : number > 0 ? 1 : 0; }

int CompareSteps(const VersionStep& a, const VersionStep& b)
{
    // "1.0-beta" comes before "1.0", and "1" is "1.0".
    if (a.letters.empty() != b.letters.empty())
        return a.letters.empty() ? 1 : -1;
    if (!a.letters.empty())
        return Sign(CompareNoCase(a.letters, b.letters));
    if (a.digits.size() != b.digits.size())
        return a.digits.size() < b.digits.size() ? -1 : 1;
    return Sign(a.digits.compare(b.digits));
}

int CompareVersions(View a, View b)
{
    for (View* version : {&a, &b}) {
        const bool named = version->size() > 1 && LowerCase((*version)[0]) == u'v' && IsDigit((*version)[1]);
        version->remove_prefix(named ? 1 : 0);
    }
    for (;;) {
        const VersionStep stepA = NextStep(a);
        const VersionStep stepB = NextStep(b);
        const int order = CompareSteps(stepA, stepB);
        if (order != 0 || (stepA.ended && stepB.ended))
            return order;
    }
}

} // namespace

// @similar[text,other]: how alike they are, from 0 to 100; case does not count.
int Similar_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    CString a(arguments.Text(0));
    CString b(arguments.Text(1));
    if (IsTooMuch(a, b))
        return answer::tooLong;
    MakeUpper(a);
    MakeUpper(b);
    const std::size_t longest = std::max({a.size(), b.size(), std::size_t{1}});
    return answer::Number(call, static_cast<std::int64_t>((longest - EditDistance(a, b)) * 100 / longest));
}

// @lcs[text,other]: the longest common subsequence; case does not count.
int Lcs_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"st");
    if (arguments.Error())
        return arguments.Error();
    if (IsTooMuch(arguments.Text(0), arguments.Text(1)))
        return answer::tooLong;
    return answer::Text(call, CommonSubsequence(arguments.Text(0), arguments.Text(1)));
}

// @version[a,b]: -1, 0 or 1, as version a is before, the same as or after version b.
int Version_Function(FunctionCall& call)
{
    const FunctionArguments arguments(call, u"tt");
    if (arguments.Error())
        return arguments.Error();
    CString a(arguments.Text(0));
    CString b(arguments.Text(1));
    return answer::Number(call, CompareVersions(a.Trim(), b.Trim()));
}
