// The recycle bin: what each drive's holds, and taking things out of it again. Putting something in is
// MoveToRecycleBin of file_changes.h.
//
// Changes answer 0 or a Windows error number and ask nobody.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "text/cstring.h"

struct BinTotals {
    std::uint64_t items = 0;
    std::uint64_t bytes = 0;
};
// Of the drive with this root; nothing when it has no bin.
std::optional<BinTotals> ReadBinTotals(const CString& root);
unsigned EmptyBin(const CString& root);

struct RecycledItem {
    CString name;   // that it had
    CString folder; // where it was
    std::uint64_t size = 0;
    std::uint64_t deleted = 0; // local file time, 0 when unknown
    bool isFolder = false;
    std::size_t number = 0; // in the bin that it was read from
};

// The bin of all drives, as the desktop shows it.
class RecycleBin {
public:
    RecycleBin();
    ~RecycleBin();

    // False when this system shows none.
    bool IsOpen() const;
    std::vector<RecycledItem> Items();
    // Puts it back where it was. A file that has taken the place meanwhile is an error.
    unsigned Restore(const RecycledItem& item);

private:
    struct State;
    std::unique_ptr<State> state;
};
