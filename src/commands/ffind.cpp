#include "commands/ffind.h"

#include <utility>
#include <vector>

#include "commands/ffind_options.h"
#include "commands/file_finding.h"
#include "engine/results.h"
#include "engine/state.h"
#include "text/format.h"
#include "text/words.h"

const CommandHelp ffindHelp = {
    u"Finds files by name, attributes, date, size and contents.",
    u"FFIND [range ...] [/T\"text\" | /E\"expression\" | /X\"bytes\"] [/A[:]attributes] [/B] [/C] "
    u"[/D[drives]] [/F] [/H] [/I] [/K] [/L] [/M] [/N] [/O[:]order] [/P] [/S[levels]] [/U] [/V] [/W[lines]] "
    u"[/Y] [name ...]",
    u"/A  files with attributes, as DIR /A tells\n"
    u"/B  names alone\n"
    u"/C  letter case counts in texts and expressions\n"
    u"/D  on these drives, from their roots; without letters on all\n"
    u"/E  files with a line in which this regular expression is found\n"
    u"/F  stop at the first file\n"
    u"/H  whole words only\n"
    u"/I  \"*\" and \"?\" in the text stand for themselves\n"
    u"/K  no line with the name above the lines that are found\n"
    u"/L  number the lines\n"
    u"/M  no totals\n"
    u"/N  files that do not hold it\n" FILE_ORDER_HELP u"/P  wait for a key after each screen\n"
    u"/S  directories below as well; with a number, so many levels of them\n"
    u"/T  files with a line that holds this text; \"*\" stands for any characters, \"?\" for any one\n"
    u"/U  totals alone\n"
    u"/V  every line or place that is found, not only the first of each file\n"
    u"/W  with so many lines around it, 2 if not told\n"
    u"/X  files that hold these bytes, in pairs of hexadecimal digits\n"
    u"/Y  ask after each file whether to go on\n"
    u"Names and ranges are those of DIR. UTF-8 and UTF-16 are recognised, other texts are read in the code "
    u"page of the console and in that of windowed programs; a file that is no text is named without its "
    u"lines. The result is 0 when a file was found, 1 when none was. The result counters are "
    u"%_ffind_files, %_ffind_dirs and %_ffind_errors.",
    u"ffind /s *.txt\n"
    u"ffind /s /v /l /t\"to do\" *.c;*.h\n"
    u"ffind /s /b /e\"^version *=\" *.ini\n"
    u"ffind /x\"4D 5A\" /b *.*\n"
    u"ffind /s /[d-7] /[s1M] /o-s *",
};

int Ffind_Command(CString& arguments)
{
    FfindOptions options;
    if (const int code = ReadFfindOptions(arguments, options))
        return code;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        names.push_back(u"*");
    FileFinding finding(u"ffind", options);
    for (const CString& name : NamesOnDrives(options, std::move(names)))
        finding.FindIn(name);
    return finding.Finish();
}
