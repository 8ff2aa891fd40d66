// Drives: how much room there is, what they are called, and what they are.
//
// The argument is a drive ("c", "c:"), a share or any file on it; without one the current drive is meant. A
// drive that is not there or has no medium answers -1 for an amount, an empty text, or 0 for no.
#include "functions/families.h"

#include "functions/amounts.h"
#include "functions/arguments.h"
#include "lang/function_messages.h"
#include "platform/file_facts.h"
#include "platform/volumes.h"
#include "text/compare.h"

namespace {

using View = std::u16string_view;

constexpr unsigned removableDrive = 2;
constexpr unsigned fixedDrive = 3;
constexpr unsigned remoteDrive = 4;
constexpr unsigned opticalDrive = 5;

CString RootOf(const FunctionCall& call) { return DriveRoot(FileArgument(call.arguments)); }

// The letter of the argument's drive, 0 for a share.
char16_t LetterOf(const FunctionCall& call)
{
    const CString root = RootOf(call);
    return root[1] == u':' ? root[0] : u'\0';
}

int AnswerSpace(FunctionCall& call, std::uint64_t (*amount)(const DiskSpace& space))
{
    const FunctionArguments arguments(call, u"s|t");
    AmountUnit unit;
    if (!ReadAmountUnit(arguments.Text(1), unit))
        return Refuse(errors::unknownUnit);
    const auto space = ReadDiskSpace(DriveRoot(FileArgument(arguments.Text(0))));
    return space ? AnswerAmount(call, amount(*space), unit) : answer::Number(call, -1);
}

VolumeDetails DetailsOf(const FunctionCall& call)
{
    return ReadVolumeDetails(RootOf(call)).value_or(VolumeDetails());
}

StorageFacts StorageOf(const FunctionCall& call)
{
    const char16_t letter = LetterOf(call);
    return letter ? ReadStorageFacts(letter).value_or(StorageFacts()) : StorageFacts();
}

// The word for a kind of drive, in which more is told apart than in the system's number.
View KindWord(unsigned kind, View bus, bool substituted)
{
    constexpr View words[] = {u"unknown", u"none", u"removable", u"fixed", u"remote", u"cdrom", u"ramdisk"};
    if (substituted)
        return u"subst";
    if (bus == u"USB" && (kind == fixedDrive || kind == removableDrive))
        return u"usb";
    return kind < std::size(words) ? words[kind] : words[0];
}

} // namespace

// @diskfree, @diskused and @disktotal[drive[,unit]]: bytes, or as many whole units.
int Diskfree_Function(FunctionCall& call)
{
    return AnswerSpace(call, [](const DiskSpace& space) { return space.free; });
}

int Diskused_Function(FunctionCall& call)
{
    return AnswerSpace(call, [](const DiskSpace& space) { return space.total - space.unused; });
}

int Disktotal_Function(FunctionCall& call)
{
    return AnswerSpace(call, [](const DiskSpace& space) { return space.total; });
}

// @label[drive], @fstype[drive], @serial[drive] ("1234-ABCD").
int Label_Function(FunctionCall& call) { return answer::ForeignText(call, DetailsOf(call).label); }
int Fstype_Function(FunctionCall& call) { return answer::ForeignText(call, DetailsOf(call).fileSystem); }

int Serial_Function(FunctionCall& call)
{
    const auto details = ReadVolumeDetails(RootOf(call));
    return answer::ForeignText(
        call, details ? Format(u"%04X-%04X", details->serial >> 16, details->serial & 0xFFFF) : CString());
}

// @ready[drive]: whether there is a medium that can be read.
int Ready_Function(FunctionCall& call)
{
    return answer::Flag(call, ReadVolumeDetails(RootOf(call)).has_value());
}

// @removable[drive], @remote[drive], @cdrom[drive], @usb[drive]
int Removable_Function(FunctionCall& call)
{
    return answer::Flag(call, DriveKind(RootOf(call)) == removableDrive);
}
int Remote_Function(FunctionCall& call) { return answer::Flag(call, DriveKind(RootOf(call)) == remoteDrive); }
int Cdrom_Function(FunctionCall& call) { return answer::Flag(call, DriveKind(RootOf(call)) == opticalDrive); }
int Usb_Function(FunctionCall& call) { return answer::Flag(call, BusName(StorageOf(call).bus) == u"USB"); }

// @drivetype[drive]: the system's number (platform/volumes.h). @drivetypeex[drive]: a word.
int Drivetype_Function(FunctionCall& call)
{
    return answer::Number(call, std::int64_t{DriveKind(RootOf(call))});
}

int Drivetypeex_Function(FunctionCall& call)
{
    const char16_t letter = LetterOf(call);
    const bool substituted = letter && !SubstitutedFolder(letter).empty();
    return answer::ForeignText(call,
                               KindWord(DriveKind(RootOf(call)), BusName(StorageOf(call).bus), substituted));
}

// @mediatype[drive]: "HDD", "SSD", "optical", "removable" or "".
int Mediatype_Function(FunctionCall& call)
{
    const unsigned kind = DriveKind(RootOf(call));
    if (kind == opticalDrive)
        return answer::ForeignText(call, u"optical");
    const StorageFacts storage = StorageOf(call);
    if (storage.rotates)
        return answer::ForeignText(call, *storage.rotates ? u"HDD" : u"SSD");
    return answer::ForeignText(call, kind == removableDrive || storage.removable ? u"removable" : u"");
}

// @bustype[drive]: "USB", "SATA", "NVMe" and so on. @serialhw[drive]: the number on the hardware.
int Bustype_Function(FunctionCall& call) { return answer::ForeignText(call, BusName(StorageOf(call).bus)); }
int Serialhw_Function(FunctionCall& call) { return answer::ForeignText(call, StorageOf(call).serial); }

// @subst[drive]: the folder that a substituted drive stands for.
int Subst_Function(FunctionCall& call)
{
    const char16_t letter = LetterOf(call);
    return answer::ForeignText(call, letter ? SubstitutedFolder(letter) : CString());
}

// @unc[name]: the name of a file on a connected drive by its server.
int Unc_Function(FunctionCall& call)
{
    return answer::ForeignText(call, UniversalName(FullPathName(FileArgument(call.arguments))));
}
