#include "commands/copy_arguments.h"

#include "text/compare.h"
#include "text/words.h"

namespace {

// Which of the switches /A and /B a word of switches ends with; 0 for neither.
char16_t ContentsLetter(std::u16string_view word, char16_t switchChar)
{
    char16_t letter = 0;
    for (std::size_t at = 0; at < word.size();) {
        const std::size_t end = std::min(word.find(switchChar, at + 1), word.size());
        if (end - at == 2 && (UpperCase(word[at + 1]) == u'A' || UpperCase(word[at + 1]) == u'B'))
            letter = UpperCase(word[at + 1]);
        at = end;
    }
    return letter;
}

// What each word that is no switch holds, in their order.
std::vector<Contents> ContentsOfWords(std::u16string_view original, const Syntax& syntax)
{
    std::vector<Contents> contents;
    Contents present = Contents::AsTheyStand;
    bool switchesEnded = false;
    for (const CString& word : SplitArguments(original, false, syntax)) {
        if (switchesEnded || word.front() != syntax.switchChar) {
            contents.push_back(present);
            continue;
        }
        switchesEnded = word.size() == 3 && word == CString(3, syntax.switchChar);
        const char16_t letter = ContentsLetter(word, syntax.switchChar);
        if (letter == 0)
            continue;
        present = letter == u'A' ? Contents::Text : Contents::AsTheyStand;
        if (!contents.empty())
            contents.back() = present;
    }
    return contents;
}

// Cuts at each "+" outside quotes; empty pieces stand for nothing between two of them.
std::vector<CString> PiecesOf(std::u16string_view word)
{
    std::vector<CString> pieces(1);
    bool quoted = false;
    for (const char16_t unit : word) {
        quoted = quoted != (unit == u'"');
        if (unit == u'+' && !quoted)
            pieces.emplace_back();
        else
            pieces.back().Append(unit);
    }
    return pieces;
}

} // namespace

CopyArguments ReadCopyArguments(std::u16string_view original, std::u16string_view cleaned,
                                const Syntax& syntax, const std::function<bool(const CString&)>& exists)
{
    CopyArguments arguments;
    const std::vector<CString> words = SplitArguments(cleaned, true, syntax);
    std::vector<Contents> contents = ContentsOfWords(original, syntax);
    contents.resize(words.size(), contents.empty() ? Contents::AsTheyStand : contents.back());
    bool plus = false; // the last thing read
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool last = i + 1 == words.size();
        if (last && i > 0 && !plus && words[i].front() != u'+') {
            arguments.target = words[i];
            arguments.targetContents = contents[i];
            return arguments;
        }
        if (exists(WithoutQuotes(words[i]))) {
            arguments.sources.push_back({words[i], contents[i]});
            plus = false;
            continue;
        }
        const std::vector<CString> pieces = PiecesOf(words[i]);
        arguments.joins = arguments.joins || pieces.size() > 1;
        for (const CString& piece : pieces)
            if (!piece.empty())
                arguments.sources.push_back({piece, contents[i]});
        plus = pieces.back().empty();
    }
    arguments.touches = plus;
    arguments.targetContents =
        arguments.sources.empty() ? Contents::AsTheyStand : arguments.sources[0].contents;
    return arguments;
}
