#include "expand/expansion.h"

#include "engine/results.h"
#include "expand/expander.h"
#include "text/compare.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t npos = View::npos;

// "%=" stands for the escape character when the setting allows it.
void ExpandPseudoVariables(CString& line, const ExpansionSettings& settings)
{
    if (!settings.pseudoVariables || (settings.mask & expansion_mask::noPseudoVariables))
        return;
    for (std::size_t at = 0; (at = scan(line, u"%", quotes::back, settings.syntax, at)) != npos; ++at) {
        if (line[at + 1] == u'%')
            ++at;
        else if (line[at + 1] == u'=')
            line.Replace(at, 2, View(&settings.syntax.escapeChar, 1));
    }
}

int TestQuotes(View line, const Syntax& syntax, ExpansionWorld& world)
{
    if (line.find_first_of(u"\"`") == npos)
        return 0;
    char16_t unclosed = 0;
    scan(line, {}, line[0] == u'(' ? quotes::bothAndParentheses : quotes::both, syntax, 0, &unclosed);
    if (unclosed == 0 || unclosed == u'(')
        return 0;
    return world.Report(errors::unclosedQuote, Shown(line)), static_cast<int>(errors::unclosedQuote);
}

int ExpandWith(CString& line, const ExpansionSettings& settings, ExpansionWorld& world, bool nested,
               const Parameters* parameters)
{
    if (settings.delayedExpansion && line.Find(u'!') != npos) {
        Expander delayed(line, world, settings);
        delayed.topLevel = !nested;
        delayed.parameters = parameters;
        const int code = delayed.RunDelayed();
        if (delayed.Changed())
            line = delayed.Text();
        if (code != 0)
            return code;
    }
    if (line.Find(u'%') == npos)
        return 0;
    Expander expander(line, world, settings);
    expander.topLevel = !nested;
    expander.parameters = parameters;
    expander.startDepth = parameters ? 1 : 0;
    const int code = expander.Run();
    if (expander.Changed())
        line = expander.Text();
    return code;
}

// Counts one more expansion inside another for as long as it lives.
class Deeper {
public:
    explicit Deeper(ExpansionWorld& theWorld) : world(theWorld) { ++world.Progress().depth; }
    ~Deeper() { --world.Progress().depth; }
    Deeper(const Deeper&) = delete;
    Deeper& operator=(const Deeper&) = delete;

private:
    ExpansionWorld& world;
};

// A whole line has its own count of steps: it may be a command that a function of another line runs.
class OwnSteps {
public:
    explicit OwnSteps(ExpansionWorld& theWorld) : world(theWorld), kept(world.Progress().steps)
    {
        world.Progress().steps = 0;
    }
    ~OwnSteps() { world.Progress().steps = kept; }
    OwnSteps(const OwnSteps&) = delete;
    OwnSteps& operator=(const OwnSteps&) = delete;

private:
    ExpansionWorld& world;
    unsigned kept;
};

class EndLocalMark {
public:
    EndLocalMark(View line, const Syntax& syntax, ExpansionWorld& theWorld) : world(theWorld)
    {
        const Word first = NextWord(line, 0, syntax);
        set = EqualNoCase(line.substr(first.start, first.length), u"ENDLOCAL");
        if (set)
            world.SetEndLocal(true);
    }
    ~EndLocalMark()
    {
        if (set)
            world.SetEndLocal(false);
    }
    EndLocalMark(const EndLocalMark&) = delete;
    EndLocalMark& operator=(const EndLocalMark&) = delete;

private:
    ExpansionWorld& world;
    bool set;
};

} // namespace

int VariableExpansion(CString& line, bool nested, ExpansionWorld& world)
{
    if (line.empty())
        return 0;
    ExpansionSettings settings = world.Settings();
    if (nested) {
        const OwnSteps steps(world);
        return ExpandWith(line, settings, world, true, nullptr);
    }
    ExpandPseudoVariables(line, settings);
    if (const int code = TestQuotes(line, settings.syntax, world))
        return code;
    if (line.view().find_first_of(settings.delayedExpansion ? u"%!" : u"%") == npos)
        return 0;
    const OwnSteps steps(world);
    const EndLocalMark mark(line, settings.syntax, world);
    return ExpandWith(line, settings, world, false, nullptr);
}

int ExpandFunctionBody(CString& body, const Parameters& parameters, ExpansionWorld& world)
{
    const ExpansionSettings settings = world.Settings();
    if (world.Progress().depth >= deepestExpansion)
        return world.Report(errors::variableLoop, Shown(body)), static_cast<int>(errors::variableLoop);
    const Deeper deeper(world);
    return ExpandWith(body, settings, world, true, &parameters);
}
