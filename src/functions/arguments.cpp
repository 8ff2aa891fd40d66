#include "functions/arguments.h"

#include <algorithm>

#include "lang/errors.h"
#include "text/compare.h"
#include "text/numbers.h"

namespace {

using View = std::u16string_view;

constexpr std::size_t npos = View::npos;

bool IsQuoted(View piece, char16_t quote)
{
    return piece.size() >= 2 && piece.front() == quote && piece.back() == quote;
}

View TrimBlanks(View text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

std::vector<View> SplitFunctionArguments(View text, const Syntax& syntax)
{
    std::vector<View> pieces;
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (unit == u',') {
            pieces.push_back(text.substr(start, at - start));
            start = at + 1;
        } else if (unit == u'"' || unit == u'`') {
            const std::size_t closing = text.find(unit, at + 1);
            at = closing == npos ? at : closing;
        } else if (unit == syntax.escapeChar && syntax.escapes) {
            ++at;
        }
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

View BareArgument(View piece)
{
    const View trimmed = TrimBlanks(piece);
    const bool quoted = IsQuoted(trimmed, u'`') || IsQuoted(trimmed, u'"');
    return quoted ? trimmed.substr(1, trimmed.size() - 2) : piece;
}

bool ReadNumberArgument(View piece, std::int64_t& number)
{
    piece = TrimBlanks(piece);
    const View digits = piece.substr(!piece.empty() && (piece[0] == u'-' || piece[0] == u'+') ? 1 : 0);
    std::size_t used = 0;
    const auto value = BeginsNoCase(digits, u"0x") ? ReadInteger(piece, &used) : ReadDecimal(piece, &used);
    if (!value || used != piece.size())
        return false;
    number = *value;
    return true;
}

FunctionArguments::FunctionArguments(const FunctionCall& call, View pattern)
{
    const std::size_t bar = pattern.find(u'|');
    const std::size_t least = bar == npos ? pattern.size() : bar;
    CString all(pattern);
    if (bar != npos)
        all.Erase(bar, 1);
    const std::vector<View> pieces = SplitFunctionArguments(call.arguments, call.syntax);
    // The reading with the most arguments wins; one with numbers where texts stand is none.
    for (count = std::min(all.size(), pieces.size()); count >= least && count > 0; --count) {
        if (Take(pieces, all.view().substr(0, count), call.arguments))
            return;
    }
    count = 0;
    error = static_cast<int>(pieces.size() < least ? errors::missingArgument : errors::invalidNumber);
}

bool FunctionArguments::Take(const std::vector<View>& pieces, View letters, View text)
{
    // Surplus pieces belong to the subject, which is the first argument.
    const std::size_t surplus = pieces.size() - letters.size();
    if (surplus > 0 && letters[0] != u's')
        return false;
    for (std::size_t n = 0; n < letters.size(); ++n) {
        const View piece = pieces[n == 0 ? 0 : n + surplus];
        const char16_t letter = letters[n];
        texts[n] = letter == u's' ? piece : BareArgument(piece);
        if (letter == u'n' && !ReadNumberArgument(piece, numbers[n]))
            return false;
        if (letter == u'q' && texts[n].size() == piece.size())
            return false;
    }
    if (surplus > 0)
        texts[0] = text.substr(0, static_cast<std::size_t>(pieces[surplus].end() - text.begin()));
    return true;
}
