#include "commands/volume_report.h"

#include "core/command_switches.h"
#include "engine/expansion_entry.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "files/directory_name.h"
#include "lang/file_messages.h"
#include "platform/directory.h"
#include "platform/file_details.h"
#include "platform/volumes.h"
#include "text/words.h"

const CommandHelp volHelp = {
    u"Shows the labels and serial numbers of drives.",
    u"VOL [/A] [drive: ...]",
    u"/A  all drives that can be asked now\n"
    u"Without a drive the current one is meant. Any file stands for the drive or share that it is on. The "
    u"result is 2 when a drive cannot be asked.",
    u"vol\n"
    u"vol c: d:\n"
    u"vol \\\\server\\share",
};

const CommandHelp freeHelp = {
    u"Shows how much room there is on drives.",
    u"FREE [/A] [/B | /K | /M | /G | /T] [drive: ...]",
    u"/A  all drives that can be asked now\n"
    u"/B  count in bytes, as happens without any of these\n"
    u"/K  count in kilobytes of 1024 bytes; /M, /G and /T in units of 1024 times as much each\n"
    u"Without a drive the current one is meant. Any file stands for the drive or share that it is on. Units "
    u"are rounded down, for the part in use up. What is free for this user is told as well where a quota "
    u"makes it less. The result is 2 when a drive cannot be asked.",
    u"free\n"
    u"free /m c: d:\n"
    u"free /a /g",
};

namespace {

// The drives that the arguments name, the current one when there are none.
std::vector<CString> RootsOf(const CString& arguments, bool all)
{
    std::vector<CString> roots;
    if (all)
        for (const char16_t letter : AllDrives())
            if (CString root = DriveRoot(CString(1, letter)); ReadVolumeDetails(root))
                roots.push_back(std::move(root));
    for (const CString& name : SplitArguments(arguments, true, CurrentSyntax()))
        roots.push_back(DriveRoot(WithoutQuotes(name)));
    if (roots.empty())
        roots.push_back(DriveRoot(u""));
    return roots;
}

// A unit of bytes and how it is called.
struct Unit {
    unsigned shift = 0; // a power of two
    CString name;
};

class RoomReport {
public:
    explicit RoomReport(const Unit& in) : unit(in) {}

    bool Show(const DiskSpace& space) const
    {
        const std::uint64_t used = space.total - space.unused;
        const std::uint64_t usedUp = used + ((std::uint64_t{1} << unit.shift) - 1);
        bool written = Line(message::roomTotal, space.total, {}) &&
                       Line(message::roomUsed, usedUp, Percent(used, space.total)) &&
                       Line(message::roomFree, space.unused, Percent(space.unused, space.total));
        if (written && space.free != space.unused)
            written = Line(message::roomForUser, space.free, Percent(space.free, space.total));
        return written;
    }

private:
    static CString Percent(std::uint64_t part, std::uint64_t whole)
    {
        const double ratio = static_cast<double>(part) / static_cast<double>(whole == 0 ? 1 : whole);
        return Format(u" (%u%%)", static_cast<unsigned>(ratio * 100));
    }

    bool Line(unsigned text, std::uint64_t bytes, const CString& percent) const
    {
        CString number = Format(u"%u", bytes >> unit.shift);
        AddCommas(number);
        return PrintLine(Format(u"%22s %s %s%s", number, unit.name, LoadMessage(text), percent));
    }

    const Unit& unit;
};

// The lines for each drive, an empty one between two drives. `room` tells the room behind them.
template <typename Room> int Report(const std::vector<CString>& roots, Room room)
{
    int code = result::success;
    bool first = true;
    for (const CString& root : roots) {
        const std::vector<CString> lines = VolumeLines(root);
        if (lines.empty()) {
            code = MVError(0, root);
            continue;
        }
        if (!first)
            PrintLine(u"");
        first = false;
        for (const CString& line : lines)
            PrintLine(line);
        if (!room(root))
            code = MVError(0, root);
    }
    return code;
}

} // namespace

std::vector<CString> VolumeLines(std::u16string_view directory)
{
    const std::optional<VolumeFacts> facts = ReadVolumeFacts(directory);
    if (!facts)
        return {};
    const char16_t letter = DriveLetter(directory);
    const CString place =
        letter ? CString(1, letter) : CString(directory.substr(0, directory.find(u'\\', 2)));
    CString label = facts->label.empty() ? LoadMessage(message::volumeWithoutLabel, place)
                                         : LoadMessage(message::volumeLabel, place) + facts->label;
    const CString serial = Format(u"%04X-%04X", facts->serial >> 16, facts->serial & 0xFFFFu);
    return {std::move(label), LoadMessage(message::volumeSerial, serial)};
}

int Vol_Command(CString& arguments)
{
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, u"A", flags))
        return code;
    return Report(RootsOf(arguments, flags != 0), [](const CString&) { return true; });
}

int Free_Command(CString& arguments)
{
    constexpr std::u16string_view letters = u"ABKMGT";
    std::uint64_t flags = 0;
    if (const int code = ReadSwitches(arguments, letters, flags))
        return code;
    const auto has = [&](char16_t letter) { return (flags >> letters.find(letter) & 1) != 0; };
    const unsigned thousands = has(u'T') ? 4 : has(u'G') ? 3 : has(u'M') ? 2 : has(u'K') ? 1 : 0;
    const Unit unit = {thousands * 10, LoadMessage(message::unitBytes + thousands)};
    const RoomReport report(unit);
    return Report(RootsOf(arguments, has(u'A')), [&](const CString& root) {
        const std::optional<DiskSpace> space = ReadDiskSpace(root);
        return space && report.Show(*space);
    });
}
