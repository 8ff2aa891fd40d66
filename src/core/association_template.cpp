#include "core/association_template.h"

#include <algorithm>

#include "text/compare.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

class Filler {
public:
    Filler(std::u16string_view fileName, std::u16string_view argumentText, std::u16string_view directory)
        : file(fileName), arguments(argumentText), currentDirectory(directory)
    {
        while (!arguments.empty() && IsBlank(arguments.front()))
            arguments.remove_prefix(1);
    }

    CString Run(std::u16string_view text)
    {
        for (std::size_t at = 0; at < text.size(); ++at) {
            quoted = quoted != (text[at] == u'"');
            if (text[at] == u'%' && at + 1 < text.size())
                Put(text[++at]);
            else
                line.Append(text[at]);
        }
        if (!fileUsed) {
            line.Append(u' ');
            quoted = false;
            PutFile();
        }
        return line.TrimRight();
    }

private:
    void Put(char16_t letter)
    {
        if (letter >= u'2' && letter <= u'9') {
            Syntax syntax;
            line.Append(GetNthArgument(arguments, letter - u'2', syntax));
            return;
        }
        switch (UpperCase(letter)) {
        case u'1':
        case u'L':
        case u'V':
        case u'D': PutFile(); break;
        case u'*': line.Append(arguments); break;
        case u'W': line.Append(currentDirectory); break;
        case u'%': line.Append(u'%'); break;
        default: break;
        }
    }

    void PutFile()
    {
        line.Append(quoted ? CString(file) : AddQuotes(file));
        fileUsed = true;
    }

    std::u16string_view file;
    std::u16string_view arguments;
    std::u16string_view currentDirectory;
    CString line;
    bool quoted = false;
    bool fileUsed = false;
};

} // namespace

CString FillAssociation(std::u16string_view commandTemplate, std::u16string_view file,
                        std::u16string_view arguments, std::u16string_view currentDirectory)
{
    return Filler(file, arguments, currentDirectory).Run(commandTemplate);
}

CString ProgramOfTemplate(std::u16string_view commandTemplate)
{
    const std::size_t start = commandTemplate.find_first_not_of(u" \t");
    if (start == npos)
        return CString();
    commandTemplate.remove_prefix(start);
    if (commandTemplate.front() == u'"')
        return CString(commandTemplate.substr(1, commandTemplate.find(u'"', 1) - 1));
    constexpr std::u16string_view extension = u".exe";
    for (std::size_t at = FindNoCase(commandTemplate, extension); at != npos;
         at = FindNoCase(commandTemplate, extension, at + 1)) {
        const std::size_t end = at + extension.size();
        if (end == commandTemplate.size() || IsBlank(commandTemplate[end]))
            return CString(commandTemplate.substr(0, end));
    }
    return CString(commandTemplate.substr(0, commandTemplate.find_first_of(u" \t")));
}

bool NeedsWindowsShell(std::u16string_view commandTemplate)
{
    return FindNoCase(commandTemplate, u"%I") != npos || FindNoCase(commandTemplate, u"/dde") != npos ||
           EqualNoCase(FileNamePart(ProgramOfTemplate(commandTemplate)), u"rundll32.exe");
}
