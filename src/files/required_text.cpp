#include "files/required_text.h"

#include "text/compare.h"

namespace {

using View = std::u16string_view;

// Walks over an expression and keeps the longest run; gives up where a plain look is not enough.
class RunFinder {
public:
    RunFinder(View expression, bool anyCase) : text(expression), ignoresCase(anyCase) {}

    CString Find()
    {
        for (at = 0; at < text.size();)
            if (!Step())
                return {};
        EndRun();
        return depth == 0 ? longest : CString();
    }

private:
    // False where nothing can be told.
    bool Step()
    {
        const char16_t unit = text[at++];
        switch (unit) {
        case u'\\': return Escape();
        case u'[': return PassClass();
        case u'(':
            EndRun();
            ++depth;
            return !text.substr(at).starts_with(u'?') || PassGroupMark();
        case u')': EndRun(); return --depth >= 0;
        case u'|': EndRun(); return depth > 0;
        case u'*':
        case u'?': DropLast(); return true;
        case u'{': DropLast(); return PassCount();
        case u'+':
        case u'.':
        case u'^':
        case u'$': EndRun(); return true;
        default: return Literal(unit);
        }
    }

    bool Literal(char16_t unit)
    {
        if (unit >= 128) {
            EndRun();
            return !ignoresCase;
        }
        if (ignoresCase && HasOtherForms(unit))
            EndRun();
        else if (depth == 0)
            run.Append(unit);
        return true;
    }

    // Beyond ASCII there are letters that are K or S, and some that are two: ff, fi, fl, ss, st.
    bool HasOtherForms(char16_t unit)
    {
        const char16_t letter = UpperCase(unit);
        const bool second = previous == u'F' || previous == u'S';
        previous = letter;
        return letter == u'F' || letter == u'K' || letter == u'S' ||
               (second && (letter == u'I' || letter == u'L' || letter == u'T'));
    }

    bool Escape()
    {
        constexpr View harmless = u"dDwWsSbBAzZhHtrnfvae";
        if (at >= text.size())
            return false;
        const char16_t unit = text[at++];
        constexpr View anchors = u"`'<>"; // in some dialects
        if (!IsLetterOrDigit(unit))
            return anchors.find(unit) == View::npos && Literal(unit);
        EndRun();
        return harmless.find(unit) != View::npos;
    }

    // Classes within classes are read differently by the dialects.
    bool PassClass()
    {
        EndRun();
        at += text.substr(at).starts_with(u'^') ? 1 : 0;
        for (bool first = true; at < text.size(); first = false) {
            const char16_t unit = text[at++];
            if (unit == u']' && !first)
                return true;
            if (unit == u'[' || unit == u'&' || (unit == u']' && first))
                return false;
            at += unit == u'\\' ? 1 : 0;
        }
        return false;
    }

    // Other marks than "(?:" may change the meaning of what follows.
    bool PassGroupMark()
    {
        const bool plain = text.substr(at).starts_with(u"?:");
        at += 2;
        return plain;
    }

    bool PassCount()
    {
        const std::size_t end = text.find_first_not_of(u"0123456789,", at);
        if (end == View::npos || text[end] != u'}')
            return false;
        at = end + 1;
        return true;
    }

    void DropLast()
    {
        if (!run.empty())
            run.Truncate(run.size() - 1);
        EndRun();
    }

    void EndRun()
    {
        if (run.size() > longest.size())
            longest = run;
        run.Clear();
    }

    View text;
    bool ignoresCase;
    std::size_t at = 0;
    int depth = 0;
    char16_t previous = 0; // letter, in upper case
    CString run;
    CString longest;
};

} // namespace

CString RequiredText(View expression, RegexSyntax syntax, RegexCase letterCase)
{
    const bool known = syntax == RegexSyntax::Perl || syntax == RegexSyntax::Ruby ||
                       syntax == RegexSyntax::Java || syntax == RegexSyntax::Python;
    return known ? RunFinder(expression, letterCase == RegexCase::Ignore).Find() : CString();
}
