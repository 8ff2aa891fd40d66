#include "core/redirection_parser.h"

#include "lang/errors.h"
#include "text/compare.h"
#include "text/escapes.h"
#include "text/scanner.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

class Parser {
public:
    Parser(std::u16string_view line, bool inParentheses, const Syntax& syntaxInForce)
        : text(line), parentheses(inParentheses), syntax(syntaxInForce)
    {}

    unsigned Run(CString& command, std::vector<RedirectionRequest>& requests)
    {
        const std::u16string_view quoting = parentheses ? quotes::bothAndParentheses : quotes::both;
        std::size_t kept = 0;
        CString rest;
        for (;;) {
            std::size_t operatorAt = scan(text, u"<>", quoting, syntax, at);
            if (operatorAt == npos)
                break;
            at = operatorAt;
            RedirectionRequest request;
            request.handle = TakeHandleDigit(operatorAt, kept);
            const unsigned code = text[at] == u'<' ? ReadInput(request) : ReadOutput(request);
            if (code != 0)
                return code;
            rest.Append(text.substr(kept, operatorAt - kept));
            kept = at;
            requests.push_back(std::move(request));
        }
        if (kept == 0)
            return 0;
        rest.Append(text.substr(kept));
        command = std::move(rest);
        return 0;
    }

private:
    char16_t Unit(std::size_t ahead = 0) const { return at + ahead < text.size() ? text[at + ahead] : u'\0'; }

    bool Skip(char16_t unit)
    {
        if (Unit() != unit)
            return false;
        ++at;
        return true;
    }

    // "2>file": the digit counts only where it stands by itself, so that "echo a2>f" writes "a2".
    int TakeHandleDigit(std::size_t& operatorAt, std::size_t kept) const
    {
        const int byDefault = text[operatorAt] == u'<' ? 0 : 1;
        if (operatorAt == kept || text[operatorAt - 1] < u'0' || text[operatorAt - 1] > u'2')
            return byDefault;
        const bool alone = operatorAt - 1 == kept || IsDelimiter(text[operatorAt - 2], syntax) ||
                           text[operatorAt - 2] == u'(' || text[operatorAt - 2] == u')';
        if (!alone)
            return byDefault;
        --operatorAt;
        return text[operatorAt] - u'0';
    }

    unsigned ReadInput(RedirectionRequest& request)
    {
        ++at;
        if (!Skip(u'<')) {
            if (Unit() == u'&' && Unit(1) >= u'0' && Unit(1) <= u'2')
                return ReadDuplicate(request);
            request.kind = RedirectionKind::Input;
            return ReadName(request.name);
        }
        if (Skip(u'<')) {
            request.kind = RedirectionKind::HereText;
            SkipBlanks();
            request.name = WithoutOuterQuotes(text.substr(at));
            at = text.size();
            return 0;
        }
        request.kind = RedirectionKind::HereLines;
        request.stripBlanks = Skip(u'-');
        const unsigned code = ReadName(request.name);
        return code;
    }

    unsigned ReadOutput(RedirectionRequest& request)
    {
        ++at;
        request.kind = Skip(u'>') ? RedirectionKind::Append : RedirectionKind::Output;
        if (Unit() == u'&' && Unit(1) >= u'0' && Unit(1) <= u'2' && EndsWord(2))
            return ReadDuplicate(request);
        if (Skip(u'&')) {
            // ">&>" is standard error alone, ">&" both.
            if (Skip(u'>')) {
                request.handle = 2;
                if (Skip(u'>'))
                    request.kind = RedirectionKind::Append;
            } else {
                request.errorToo = true;
            }
        }
        request.overrideNoClobber = Skip(u'!');
        return ReadName(request.name);
    }

    bool EndsWord(std::size_t ahead) const
    {
        const char16_t unit = Unit(ahead);
        return unit == u'\0' || IsDelimiter(unit, syntax) || unit == u'<' || unit == u'>' || unit == u')' ||
               unit == u'\r' || unit == u'\n';
    }

    unsigned ReadDuplicate(RedirectionRequest& request)
    {
        request.kind = RedirectionKind::Duplicate;
        request.source = Unit(1) - u'0';
        at += 2;
        return 0;
    }

    void SkipBlanks()
    {
        while (IsBlank(Unit()))
            ++at;
    }

    unsigned ReadName(CString& name)
    {
        SkipBlanks();
        if (Unit() == u'`') {
            const std::size_t closing = text.find(u'`', at + 1);
            if (closing == npos)
                return errors::syntax;
            name = text.substr(at + 1, closing - at - 1);
            at = closing + 1;
        } else {
            const std::size_t start = at;
            while (at < text.size() && !EndsWord(0)) {
                const std::size_t closing = Unit() == u'"' ? text.find(u'"', at + 1) : npos;
                at = closing != npos                                 ? closing + 1
                     : syntax.escapes && Unit() == syntax.escapeChar ? at + 2
                                                                     : at + 1;
            }
            at = at > text.size() ? text.size() : at;
            CString raw(text.substr(start, at - start));
            UnEscapeLine(raw, syntax);
            name = WithoutQuotes(raw);
        }
        return name.empty() || name.size() > longestRedirectionName ? errors::syntax : 0;
    }

    std::u16string_view text;
    bool parentheses;
    const Syntax& syntax;
    std::size_t at = 0;
};

} // namespace

unsigned ParseRedirections(CString& command, bool parentheses, const Syntax& syntax,
                           std::vector<RedirectionRequest>& requests)
{
    if (command.view().find_first_of(u"<>") == npos)
        return 0;
    const CString original(command);
    return Parser(original, parentheses, syntax).Run(command, requests);
}
