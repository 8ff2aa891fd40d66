#include <windows.h>

#include "commands/file_work.h"
#include "commands/make_links.h"
#include "commands/search_switches.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/file_messages.h"
#include "platform/file_details.h"
#include "platform/file_facts.h"
#include "platform/link_making.h"
#include "platform/link_target.h"
#include "text/words.h"

const CommandHelp linksHelp = {
    u"Shows the names of files that have several, and where links lead.",
    u"LINKS [range ...] [/A[:]attributes] [/B] [/S] [name ...]",
    u"/A  files with attributes, as DIR /A tells; all are taken otherwise\n"
    u"/B  names alone: each name of a file, and the target of each link\n"
    u"/S  in all subdirectories too\n"
    u"Without names all files of the current directory are meant. Files with one name alone are shown only "
    u"when they are named. A link is shown with its target as it is written in it, and below that with the "
    u"name that it leads to. The result is 2 when something does not exist.",
    u"links\n"
    u"links report.doc\n"
    u"links /s C:\\Users\\me\\*",
};

namespace {

class LinkListing {
public:
    explicit LinkListing(bool namesAlone) : bare(namesAlone) {}

    void Show(const FILESEARCH& search)
    {
        ThrowIfBroken();
        if ((search.file.facts.attributes & file_attribute::reparsePoint) != 0)
            ShowLink(search);
        else if (!search.file.facts.IsDirectory())
            ShowNames(search);
    }

private:
    void ShowLink(const FILESEARCH& search)
    {
        const LinkTarget link = ReadLinkTarget(search.fullName);
        if (link.kind != LinkKind::Junction && link.kind != LinkKind::SymbolicLink)
            return;
        if (bare) {
            PrintLine(link.target);
            return;
        }
        const unsigned kind =
            link.kind == LinkKind::Junction ? message::kindJunction : message::kindSymbolicLink;
        PrintLine(Format(u"%s -> %s (%s)", search.name, link.target, LoadMessage(kind)));
        const CString real = RealPathName(search.fullName);
        PrintLine(CString(u"    ") + (real.empty() ? LoadMessage(message::leadsNowhere) : real));
    }

    void ShowNames(const FILESEARCH& search)
    {
        const std::optional<FileIdentity> identity = IdentifyFile(search.fullName);
        const std::uint32_t count = identity ? identity->links : 1;
        if (count < 2 && !search.literal)
            return;
        std::vector<CString> names = HardLinkNames(search.fullName);
        if (names.empty())
            names.push_back(search.fullName);
        if (!bare)
            PrintLine(Format(
                u"%s (%s)", search.name,
                LoadMessage(count == 1 ? message::oneName : message::manyNames, Format(u"%u", count))));
        for (const CString& name : names)
            PrintLine(bare ? name : CString(u"    ") + name);
    }

    bool bare;
};

} // namespace

int Links_Command(CString& arguments)
{
    FILESEARCH search;
    search.attributes = AttributeMasks::Everything();
    if (const int code = TakeSelection(arguments, search))
        return code;
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"BS", flags))
        return code;
    std::vector<CString> names = SplitArguments(arguments, true, CurrentSyntax());
    if (names.empty())
        names.emplace_back(u"*");
    if ((flags & 2) != 0)
        search.deepest = allLevels;
    LinkListing listing((flags & 1) != 0);
    return ForEachMatch(search, names, [&] { listing.Show(search); });
}
