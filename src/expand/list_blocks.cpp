#include "expand/list_blocks.h"

#include <algorithm>

#include "config/directives.h"
#include "engine/break.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/user_name.h"

namespace {

constexpr std::size_t growthStep = 0x10000;                     // bytes
constexpr std::size_t longestLocalList = std::size_t{64} << 20; // bytes of address space
constexpr std::size_t smallestList = 64;                        // units, whatever the settings say

// A size setting; some are signed and some are not.
class SizeSetting {
public:
    constexpr SizeSetting(const char16_t* directive, std::int32_t INIFILE::*field)
        : name(directive), number(field)
    {}
    constexpr SizeSetting(const char16_t* directive, std::uint32_t INIFILE::*field)
        : name(directive), count(field)
    {}

    std::size_t Units() const
    {
        const auto units = count ? std::int64_t{aIniFile.*count} : std::int64_t{aIniFile.*number};
        return static_cast<std::size_t>(std::max(units, static_cast<std::int64_t>(smallestList)));
    }
    bool IsStandard() const
    {
        return Units() == aDirectives[static_cast<std::size_t>(FindDirective(name))].standard;
    }
    void Set(std::size_t units) const
    {
        if (count)
            aIniFile.*count = static_cast<std::uint32_t>(units);
        else
            aIniFile.*number = static_cast<std::int32_t>(units);
    }

private:
    const char16_t* name;
    std::int32_t INIFILE::*number = nullptr;
    std::uint32_t INIFILE::*count = nullptr;
};

struct KindSettings {
    const char16_t* section; // the user's name follows
    SettingChoice INIFILE::*local;
    SettingChoice INIFILE::*global;
    SizeSetting bothSizes; // counts where one of the next two has its default
    SizeSetting localSize;
    SizeSetting globalSize;

    std::size_t Bytes(const SizeSetting& own) const
    {
        const bool general = own.IsStandard() && !bothSizes.IsStandard();
        return (general ? bothSizes : own).Units() * sizeof(char16_t);
    }
};

// In the order of ListKind; the bit of aGlobals.localLists that forces a local list is the row's number.
constexpr KindSettings kindSettings[] = {
    {u"SharememUAlias",
     &INIFILE::LocalAliases,
     &INIFILE::GlobalAliases,
     {u"AliasSize", &INIFILE::AliasSize},
     {u"AliasLocalSize", &INIFILE::AliasLocalSize},
     {u"AliasGlobalSize", &INIFILE::AliasGlobalSize}},
    {u"SharememUFunction",
     &INIFILE::LocalFunctions,
     &INIFILE::GlobalFunctions,
     {u"FunctionSize", &INIFILE::FunctionSize},
     {u"FunctionLocalSize", &INIFILE::FunctionLocalSize},
     {u"FunctionGlobalSize", &INIFILE::FunctionGlobalSize}},
    {u"SharememUHistory",
     &INIFILE::LocalHistory,
     &INIFILE::GlobalHistory,
     {u"History", &INIFILE::History},
     {u"HistoryLocalSize", &INIFILE::HistoryLocalSize},
     {u"HistoryGlobalSize", &INIFILE::HistoryGlobalSize}},
    {u"SharememUDirHistory",
     &INIFILE::LocalDirHistory,
     &INIFILE::GlobalDirHistory,
     {u"DirHistory", &INIFILE::DirHistory},
     {u"DirHistoryLocalSize", &INIFILE::DirHistoryLocalSize},
     {u"DirHistoryGlobalSize", &INIFILE::DirHistoryGlobalSize}},
};
static_assert(std::size(kindSettings) == static_cast<std::size_t>(ListKind::Count));

// Without its lists the shell cannot go on.
void Require(bool allocated)
{
    if (!allocated)
        ExitProcess(static_cast<UINT>(MVError(0)));
}

void CreateLocalList(const KindSettings& settings, VariableLists::Kind& kind)
{
    const std::size_t bytes = settings.Bytes(settings.localSize);
    if (!kind.local) {
        kind.localControl.changes = 0;
        kind.local = GrowingMemory(bytes, std::max(bytes, longestLocalList));
        Require(static_cast<bool>(kind.local));
    } else {
        Require(kind.local.GrowTo(bytes)); // a list never shrinks below what it may hold
    }
}

void CreateGlobalList(const KindSettings& settings, VariableLists::Kind& kind, std::u16string_view user)
{
    // The old view is given up last: the section must not die with it.
    CString name(settings.section);
    name.Append(user);
    kind.global = SharedSection::OpenOrCreate(name, settings.Bytes(settings.globalSize));
    if (kind.global) {
        settings.globalSize.Set(kind.global.Size() / sizeof(char16_t));
        return;
    }
    aIniFile.*settings.global = 0;
    aIniFile.*settings.local = 1;
    CreateLocalList(settings, kind);
}

} // namespace

VariableLists& Lists()
{
    if (!aRooms.lists)
        aRooms.lists = std::make_shared<VariableLists>();
    return *aRooms.lists;
}

void InitializeLocalGlobalLists()
{
    VariableLists& lists = Lists();
    if (!lists.lock)
        lists.lock = NamedLock(u"MVListSemaphore");
    ++lists.beginnings;
    CString user;
    for (std::size_t i = 0; i < std::size(kindSettings); ++i) {
        const KindSettings& settings = kindSettings[i];
        VariableLists::Kind& kind = lists.kinds[i];
        if (aIniFile.*settings.local || (aGlobals.localLists & (1 << i)) != 0)
            CreateLocalList(settings, kind);
        else
            kind.local = GrowingMemory();
        if (!(aIniFile.*settings.global)) {
            kind.global = SharedSection();
            continue;
        }
        if (user.empty())
            user = LoggedOnUser();
        CreateGlobalList(settings, kind, user);
    }
}

ListBlock QueryListBlock(ListKind which, ListScope scope)
{
    VariableLists::Kind& kind = Lists().kinds[static_cast<int>(which)];
    if (scope == ListScope::Local)
        return {static_cast<char16_t*>(kind.local.Data()), kind.local.Size() / sizeof(char16_t),
                &kind.localControl};
    auto* units = static_cast<char16_t*>(kind.global.Data());
    const std::size_t capacity = kind.global.Size() / sizeof(char16_t);
    if (!units || capacity < smallestList)
        return {};
    return {units, capacity, reinterpret_cast<ListControl*>(units + capacity - listReserve)};
}

// Each list counts its own changes and never down, so the sum of them tells; a list that begins anew does so
// from 0, behind all sums of the lists before it.
std::uint64_t ListChanges(ListKind kind)
{
    constexpr int bitsOfChanges = 40;
    std::uint64_t sum = Lists().beginnings << bitsOfChanges;
    for (const ListScope scope : {ListScope::Local, ListScope::Global})
        if (const ListBlock block = QueryListBlock(kind, scope))
            sum += block.control->changes.load(std::memory_order_acquire);
    return sum;
}

std::vector<SharedSection> OpenGlobalLists()
{
    const CString user = LoggedOnUser();
    std::vector<SharedSection> sections;
    for (const KindSettings& settings : kindSettings)
        if (SharedSection section = SharedSection::Open(CString(settings.section).Append(user)))
            sections.push_back(std::move(section));
    return sections;
}

bool GrowLocalList(ListKind which)
{
    GrowingMemory& local = Lists().kinds[static_cast<int>(which)].local;
    if (!local.GrowTo(local.Size() + growthStep))
        return false;
    kindSettings[static_cast<int>(which)].localSize.Set(local.Size() / sizeof(char16_t));
    return true;
}

void RepairIfNeeded(const ListBlock& block)
{
    if (NeedsRepair(block))
        RepairList(block);
}

ListUpdate::ListUpdate() : guard(Lists().lock.Take(ThrowIfBroken)) { Tls().listUpdating = true; }
ListUpdate::~ListUpdate() { Tls().listUpdating = false; }

void WaitForListWriter()
{
    if (!SwitchToThread())
        Sleep(1);
}
