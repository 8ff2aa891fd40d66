#include "engine/tables.h"
#include "expand/expander.h"
#include "expand/modifiers.h"
#include "expand/variable_names.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/scanner.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

// .BAT and .CMD files close parameters as if they were names: "%~dp0%..". 1 when such a "%" begins `text`
// and no reference of its own, which goes with the parameter.
std::size_t ClosingPercent(std::u16string_view text, const Syntax& syntax)
{
    if (!syntax.openQuotes || text.empty() || text[0] != u'%')
        return 0;
    const char16_t next = text.size() > 1 ? text[1] : u' ';
    return IsNameUnit(next) || std::u16string_view(u"%~*@=+#?[({").find(next) != npos ? 0 : 1;
}

} // namespace

int Expander::ReadDoublePercent()
{
    const View behind = line.Rest().substr(2);
    CString value;
    if (!behind.empty() && behind[0] == u'~') {
        PathModifiers modifiers;
        const View text = behind.substr(1);
        if (ReadPathModifiers(
                text, [&](std::size_t at) { return world.LoopVariable(text[at], value); }, modifiers)) {
            return InsertLoopValue(ApplyPathModifiers(value, modifiers, world), 3 + modifiers.target + 1);
        }
    } else if (!behind.empty() && !IsSpace(behind[0]) && world.LoopVariable(behind[0], value)) {
        return InsertLoopValue(value, 3);
    }
    line.Drop(1);
    changed = true;
    return Keep(1);
}

// "%((expression))" and "%(command)".
int Expander::ReadParenthesis()
{
    const View rest = line.Rest();
    const std::size_t closing = FindClosing(rest, 1, quotes::back, settings.syntax);
    if (closing == npos)
        return Fail(errors::syntax, Shown(rest));
    const bool expression =
        rest[2] == u'(' && FindClosing(rest, 2, quotes::back, settings.syntax) == closing - 1;
    if (!expression)
        return CallFunction(u"exec", rest.substr(2, closing - 2), closing + 1, rest.substr(0, closing + 1));
    CString value(rest.substr(3, closing - 4));
    if (const int code = ExpandNested(value, true))
        return code;
    if (const int code = world.Evaluate(value))
        return code;
    return InsertValue(value, closing + 1);
}

// "%{command}".
int Expander::ReadBraces()
{
    const View rest = line.Rest();
    const std::size_t closing = FindClosing(rest, 1, quotes::back, settings.syntax);
    if (closing == npos)
        return Fail(errors::syntax, Shown(rest));
    return CallFunction(u"execstr", rest.substr(2, closing - 2), closing + 1, rest.substr(0, closing + 1));
}

// "%[[condition]]" answers as an exit code does: 0 when the condition holds.
int Expander::ReadCondition()
{
    const View rest = line.Rest();
    const std::size_t closing = FindClosing(rest, 1, quotes::back, settings.syntax);
    const std::size_t inner = FindClosing(rest, 2, quotes::back, settings.syntax);
    if (closing == npos || inner != closing - 1)
        return Fail(errors::syntax, Shown(rest));
    CString condition(rest.substr(3, inner - 3));
    if (const int code = ExpandNested(condition, false))
        return code;
    const CString shown = condition;
    const int answer = world.TestCondition(condition);
    if (answer < 0)
        world.Report(errors::syntax, shown);
    return Insert(answer == 0 ? u"1" : u"0", closing + 1, Scan::Past);
}

// The "]" that ends a function's arguments. Regular expressions may hold brackets that do not pair.
std::size_t Expander::FindArgumentsEnd(View rest, std::size_t open, View name) const
{
    const bool expression =
        EqualNoCase(name, u"regex") || EqualNoCase(name, u"regexindex") || EqualNoCase(name, u"regexsub");
    if (!expression || (settings.mask & expansion_mask::noBracketRule))
        return FindClosing(rest, open, quotes::back, settings.syntax);
    // "^" begins a line there before it protects anything.
    Syntax plain = settings.syntax;
    plain.escapes = false;
    const std::size_t closing = FindClosing(rest, open, quotes::back, plain);
    if (closing != npos)
        return closing;
    const std::size_t last = rest.rfind(u']');
    return last != npos && last > open ? last : npos;
}

// "%@name[arguments]".
int Expander::ReadFunction()
{
    constexpr std::size_t longestFunctionName = 31;
    const View rest = line.Rest();
    const View name = rest.substr(2, longestFunctionName + 1);
    const std::size_t length = name.find(u'[');
    if (length == npos)
        return Fail(errors::syntax, Shown(rest.substr(1)));
    const std::size_t open = 2 + length;
    const std::size_t closing = FindArgumentsEnd(rest, open, name.substr(0, length));
    if (closing == npos)
        return Fail(errors::syntax, Shown(rest.substr(1)));
    return CallFunction(name.substr(0, length), rest.substr(open + 1, closing - open - 1), closing + 1, {});
}

// `shown` is the reference as it was written, when that is not "%@name[arguments]".
int Expander::CallFunction(View name, View arguments, std::size_t length, View shown)
{
    CString text(arguments);
    if (const int code = ExpandNested(text, EqualNoCase(name, u"eval")))
        return code;
    const CString reference =
        shown.empty() ? Format(u"%%@%s[%s]", name, text.view().substr(0, longestName)) : CString(shown);
    CString value;
    const int answer = world.CallFunction(name, text, value);
    if (answer > 0)
        return Fail(static_cast<unsigned>(answer), reference);
    if (answer == function_result::neverRescan)
        return Insert(value, length, Scan::Past);
    if (answer == function_result::rescan) {
        const bool past = settings.mask & expansion_mask::resultsNotRescanned;
        return Insert(value, length, past ? Scan::Past : Scan::Again);
    }
    return answer < 0 ? -answer : InsertValue(value, length);
}

// Whether "%name[" opens an element of an array.
bool Expander::IsArrayElement() const
{
    constexpr std::size_t longestArrayName = 127;
    const View head = line.Rest().substr(1, longestArrayName + 1);
    const std::size_t length = head.find_first_of(u" <>|=.*?!@#$%^&[");
    return length != npos && length != 0 && head[length] == u'[' && world.IsArray(head.substr(0, length));
}

// "%name[i,j]".
int Expander::ReadArrayElement()
{
    const View rest = line.Rest();
    const std::size_t open = rest.find(u'[');
    const CString name(rest.substr(1, open - 1));
    const std::size_t closing = FindClosing(rest, open, quotes::back, settings.syntax);
    if (closing == npos)
        return Fail(errors::arrayIndex, name);
    CString text(rest.substr(open + 1, closing - open - 1));
    if (const int code = ExpandNested(text, true))
        return code;
    CString value;
    if (const int code = world.ArrayElement(name, text, value))
        return code;
    const bool closed = closing + 1 < rest.size() && rest[closing + 1] == u'%';
    return InsertValue(value, closing + 1 + (closed ? 1 : 0));
}

// "%~dp1" and, at the prompt, "%~nxi".
bool Expander::ReadTilde(int& code)
{
    const View text = line.Rest().substr(2);
    Parameters current;
    const bool batch = CurrentParameters(current);
    CString value;
    std::size_t digits = 1;
    PathModifiers modifiers;
    bool ofLoop = false;
    const auto isTarget = [&](std::size_t at) {
        ofLoop = !batch || !IsDigit(text[at]);
        if (!ofLoop) {
            value = current.Entry(ReadParameterNumber(text.substr(at), digits));
            return true;
        }
        digits = 1;
        return world.LoopVariable(text[at], value);
    };
    if (!ReadPathModifiers(text, isTarget, modifiers))
        return false;
    const std::size_t end = modifiers.target + digits;
    const std::size_t closing = batch ? ClosingPercent(text.substr(end), settings.syntax) : 0;
    value = ApplyPathModifiers(value, modifiers, world);
    code = ofLoop ? InsertLoopValue(value, 2 + end) : InsertValue(value, 2 + end + closing);
    return true;
}

bool Expander::CurrentParameters(Parameters& current)
{
    if (!parameters)
        return world.BatchParameters(current);
    current = *parameters;
    return true;
}

bool Expander::ReadParameters(int& code)
{
    const View text = line.Rest().substr(1);
    const char16_t first = text[0];
    // Nothing else begins a parameter, and most references are names.
    if (!IsDigit(first) && first != u'*' && first != u'-' && first != u'#' &&
        first != settings.syntax.parameterChar)
        return false;
    Parameters current;
    if (!CurrentParameters(current)) {
        if (first == u'#')
            return code = Insert(u"0", 2, Scan::Past), true;
        return false;
    }
    const ParameterReference found = ReadParameter(text, current, settings.syntax);
    if (found.length == 0)
        return false;
    // A subroutine may have named the rest of its own arguments so.
    CString rest;
    const bool ofSubroutine = first == u'*' && !parameters && world.SubroutineParameter(u"*", rest);
    const std::size_t closing = ClosingPercent(text.substr(found.length), settings.syntax);
    code = InsertValue(ofSubroutine ? rest.view() : View(found.value), 1 + found.length + closing);
    return true;
}

bool Expander::Lookup(View name, CString& value)
{
    return world.SubroutineParameter(name, value) || world.EnvironmentVariable(name, value) ||
           world.ComputedVariable(name, value);
}

bool Expander::Exists(View name)
{
    CString value;
    return name.size() <= longestName &&
           (world.SubroutineParameter(name, value) || world.EnvironmentVariable(name, value));
}

// The names of one or two characters that need no end.
bool Expander::ReadSpecialName(int& code)
{
    const View text = line.Rest().substr(1);
    if (text[0] == u'+') {
        code = Insert(View(&settings.syntax.commandSep, 1), 2, Scan::Past);
        return true;
    }
    const std::size_t length = text[0] == u'?' || text[0] == u'!' ? 1 : text.substr(0, 2) == u"_?" ? 2 : 0;
    if (length == 0)
        return false;
    CString value;
    Lookup(text.substr(0, length), value);
    code = InsertValue(value, 1 + length);
    return true;
}

int Expander::ReadVariable()
{
    const View text = line.Rest().substr(1);
    CString value;
    // A loop that was typed at the prompt names its variable with one "%".
    const bool letter = IsNameUnit(text[0]);
    const char16_t next = text.size() > 1 ? text[1] : u' ';
    if (letter && !IsNameUnit(next) && !(next == u'%' && Exists(text.substr(0, 1))) &&
        world.LoopVariable(text[0], value))
        return InsertLoopValue(value, 2);
    const NameReference read = ReadName(text, settings.cmdVariables, settings.syntax, *this);
    const bool found = read.length != 0 && Lookup(read.name, value);
    if (!found && !read.closed && letter && world.LoopVariable(text[0], value))
        return InsertLoopValue(value, 2);
    if (read.length == 0)
        return Keep(1);
    if (found && !read.modifier.empty()) {
        if (const int code = Modify(value, read.modifier))
            return code;
    }
    return InsertValue(value, 1 + read.length);
}

// Applies the text between ":" and the closing "%". Escape characters in it protected a "%" and go now.
int Expander::Modify(CString& value, View modifier)
{
    CString plain(modifier);
    if (settings.syntax.escapes && modifier.find_first_of(u"~=") != npos) {
        for (std::size_t at; (at = plain.Find(settings.syntax.escapeChar)) != npos;)
            plain.Erase(at, 1);
    }
    return ApplyModifier(value, plain, longestExpansion) ? 0 : Fail(errors::syntax, Format(u":%s", plain));
}
