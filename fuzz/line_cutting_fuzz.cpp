// Cutting hostile lines: separators and redirections stay inside the text and always get ahead, a block reads
// the same in one piece or in many, aliases and start options take any text.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "core/alias_substitution.h"
#include "core/redirection_parser.h"
#include "core/separators.h"
#include "core/substitution.h"
#include "lifecycle/start_options.h"
#include "text/block_scanner.h"
#include "text/encoding.h"

namespace {

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void CheckSeparators(std::u16string_view text, const Syntax& syntax)
{
    for (const CommandShape shape :
         {CommandShape::Plain, CommandShape::Parentheses, CommandShape::If, CommandShape::TextLine}) {
        std::size_t from = 0;
        for (;;) {
            const Separator end = FindSeparator(text, from, shape, syntax);
            if (end.connector == Connector::None)
                break;
            Require(end.at >= from && end.length > 0 && end.Behind() <= text.size());
            from = end.Behind();
        }
    }
}

void CheckRedirections(std::u16string_view text, const Syntax& syntax)
{
    const CString original(text);
    CString command(text);
    std::vector<RedirectionRequest> requests;
    const unsigned code = ParseRedirections(command, !text.empty() && text.front() == u'(', syntax, requests);
    Require(code == 0 || command == original);
    Require(command.size() <= original.size());
    for (const RedirectionRequest& request : requests)
        Require(request.handle >= 0 && request.handle <= 2 && request.source >= 0 && request.source <= 2);
}

void CheckBlocks(std::u16string_view text, const Syntax& syntax)
{
    // Lines are complete when they arrive, as they are when a block is read.
    BlockScanner pieces(syntax);
    std::size_t inPieces = std::u16string_view::npos;
    for (std::size_t end = 0; inPieces == text.npos && end < text.size();) {
        const std::size_t line = text.find(u'\n', end);
        end = line == text.npos ? text.size() : line + 1;
        inPieces = pieces.Feed(text.substr(0, end));
    }
    BlockScanner whole(syntax);
    Require(whole.Feed(text) == inPieces && whole.InBlock() == pieces.InBlock());
    Require(inPieces == text.npos || text[inPieces] == u')');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    Syntax syntax;
    syntax.openQuotes = data[0] & 1;
    syntax.cmdDelimiters = data[0] & 2;
    syntax.escapes = !(data[0] & 4);
    syntax.duplicateBugs = !(data[0] & 8);
    syntax.commandSep = data[0] & 16 ? u'!' : u'&';
    const CString text = FromUtf8({reinterpret_cast<const char*>(data + 1), size - 1});
    CheckSeparators(text, syntax);
    CheckRedirections(text, syntax);
    CheckBlocks(text, syntax);

    const AliasName name = ReadAliasName(text, syntax);
    Require(name.start <= name.end && name.end <= text.size());
    const std::size_t half = text.size() / 2;
    SubstituteAliasParameters(text.view().substr(0, half), text.view().substr(half), syntax);
    CString line(text);
    QuickSubstitution(line, text.view().substr(0, std::min<std::size_t>(half, 300)));
    line = text;
    UnixAFStoWindows(line, syntax);
    Require(line.size() == text.size());
    UnquoteCommands(text, false);
    UnquoteCommands(text, true);
    ParseStartOptions(text);
    return 0;
}
