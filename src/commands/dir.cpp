#include "commands/dir.h"

#include <windows.h>

#include "commands/dir_listing.h"
#include "core/command_switches.h"
#include "engine/internal_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/environment.h"
#include "text/words.h"

const CommandHelp dirHelp = {
    u"Lists directories and the files in them.",
    u"DIR [range ...] [/1] [/2] [/4] [/A[:]attributes] [/B] [/D] [/E] [/F] [/G] [/H] [/K] [/L] [/M] [/N] "
    u"[/O[:]order] [/P] [/Q] [/R] [/S[levels]] [/T[:]time] [/U[12E]] [/V] [/W] [/X] [/Z] [/-C] [name ...]",
    u"/1 /2  names in one column, or in two if they fit\n"
    u"/A  files with attributes: R read-only, H hidden, S system, D directory, A archive, L link, C "
    u"compressed, E encrypted, O offline, T temporary, I not indexed; \"-\" in front for files without it, "
    u"\"+\" for files with one of these; /A alone takes all files\n"
    u"/B  names alone, with their directories when /S is given\n"
    u"/-C  no separators between thousands (/C: with them, the default)\n"
    u"/D  names in columns, sorted down (also /V)\n"
    u"/E  names in upper case\n"
    u"/F  full names alone\n"
    u"/G  sizes are what the files take on the disk\n"
    u"/H  leave out \".\" and \"..\"\n"
    u"/K  no header\n"
    u"/L  names in lower case\n"
    u"/M  no totals\n"
    u"/N  a line for each file (the default)\n" FILE_ORDER_HELP u"/P  wait for a key after each screen\n"
    u"/Q  owners\n"
    u"/R  named streams\n"
    u"/S  directories below as well; with a number, so many levels of them\n"
    u"/T  which time is shown and sorted by: C creation, A last access, W last write; a U behind it, or "
    u"alone, for UTC\n"
    u"/U  totals without files: of each directory (/U1), of all together (/U2), both (/U), or of each "
    u"extension (/UE)\n"
    u"/W  names in columns, sorted across\n"
    u"/X  short names\n"
    u"/Z  short names in place of long ones\n"
    u"/4  years have four digits, as always\n"
    u"Names may hold wildcards and sets of characters ([a-f]), be parted by \";\", be regular expressions "
    u"(::expression), or come from a file, one per line (@file). Ranges pick files by date (/[d-3]), time "
    u"(/[t8:00,12:00]), size (/[s10K,1M]), owner (/[oname]) and description (/I\"text\"), and leave out "
    u"names (/[!*.bak *.tmp]). Hidden and system files are shown only with /A. The variable DIRCMD holds "
    u"switches that DIR starts with; those of the command itself overrule them, and a \"-\" behind the slash "
    u"takes one back. The result counters are %_dir_files, %_dir_dirs and %_dir_errors.",
    u"dir\n"
    u"dir /s /b *.c;*.h\n"
    u"dir /a:-d /o:-s c:\\temp\n"
    u"dir /[d-7] /[s1M] *.log",
};

namespace {

constexpr int outputRefused = -1;

// `errorCount` grows by all that could not be listed.
int ListArgument(const CString& name, DirOptions& options, DirListing& listing, std::int64_t& errorCount)
{
    FILESEARCH search;
    search.attributes = options.attributes;
    search.ranges = options.ranges;
    search.deepest = options.deepest;
    search.intoDirectories = true;
    search.dots = options.dots && options.layout != DirLayout::Bare;
    search.shortNames = options.shortNames || options.fatNames;
    SearchedDirectory directory;
    for (StartSearch(search, name); NextDirectory(search, directory);)
        if (!listing.Add(directory))
            return outputRefused;
    const bool found = listing.FoundAny();
    if (!listing.EndArgument())
        return outputRefused;
    int code = result::success;
    const auto failed = [&](unsigned why, const CString& what) {
        ++errorCount;
        code = MVError(why, what);
    };
    ForEachFailure(search, failed);
    if (!found && search.error == 0)
        failed(ERROR_FILE_NOT_FOUND, name);
    return code;
}

} // namespace

int Dir_Command(CString& arguments)
{
    CString preset;
    ReadEnvironment(u"DIRCMD", preset);
    DirOptions options;
    if (const int code = ReadDirOptions(preset, options))
        return code;
    if (const int code = ReadDirOptions(arguments, options))
        return code;
    arguments.Insert(0, preset + u" ");
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        names.push_back(u"*");
    DirListing listing(options);
    int code = result::success;
    std::int64_t errorCount = 0;
    for (const CString& name : names) {
        const int one = ListArgument(name, options, listing, errorCount);
        if (one == outputRefused)
            return MVError(0);
        if (one != result::success)
            code = one;
    }
    SetResultCounters(u"dir", {listing.Files(), listing.Directories(), errorCount});
    return code;
}
