#include "commands/differ_files.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include <windows.h>

#include "engine/results.h"
#include "files/file_comparison.h"
#include "files/file_scan.h"
#include "files/text_lines.h"
#include "lang/file_messages.h"
#include "platform/byte_files.h"
#include "platform/file_facts.h"
#include "text/compare.h"
#include "text/content_kind.h"
#include "text/format.h"
#include "text/line_difference.h"

namespace {

constexpr std::uint64_t largestText = std::uint64_t{256} << 20; // bytes that are held in memory for lines

int Failed(const CString& name, unsigned code, ListingOutput& output)
{
    output.Flush();
    MVError(code, name);
    return differ_result::failed;
}

bool IsText(const CString& name)
{
    constexpr std::size_t lookedAt = 4096;
    const std::optional<FileFacts> facts = ReadFileFacts(name);
    std::string start;
    if (!facts || facts->size > largestText || !ReadFileStart(name, lookedAt, start))
        return false;
    return ContentKind(start) != u"binary";
}

// What counts of a line.
CString Essence(std::u16string_view line, const FileDifferOptions& options)
{
    CString text(line);
    if (options.ignoresBlanks) {
        text.Clear();
        for (const char16_t unit : line)
            if (!IsBlank(unit))
                text.Append(unit);
            else if (!text.empty() && text.back() != u' ')
                text.Append(u' ');
        text.TrimRight();
    }
    if (options.ignoresCase)
        MakeUpper(text);
    return text;
}

struct TextHash {
    std::size_t operator()(const CString& text) const { return std::hash<std::u16string_view>()(text); }
};

struct TextSide {
    std::vector<CString> lines;
    std::vector<std::uint32_t> numbers; // equal for equal lines
};

class LineDiffer {
public:
    LineDiffer(const FileDifferOptions& what, ListingOutput& to) : options(what), output(to) {}

    bool Read(const CString& name, TextSide& side)
    {
        TextLines reader;
        if (!reader.Open(name))
            return false;
        for (std::u16string_view line; reader.Next(line);) {
            side.lines.emplace_back(line);
            const auto next = static_cast<std::uint32_t>(known.size());
            side.numbers.push_back(known.try_emplace(Essence(line, options), next).first->second);
        }
        return true;
    }

    int Differ(const CString& leftName, const CString& rightName)
    {
        const std::vector<RowChange> changes = CompareRows(left.numbers, right.numbers);
        if (changes.empty())
            return differ_result::same;
        if (options.quiet)
            return differ_result::different;
        if (options.header) {
            output.Line(Format(u"--- %s", leftName));
            output.Line(Format(u"+++ %s", rightName));
        }
        for (std::size_t first = 0; first < changes.size() && !output.Refused();) {
            std::size_t last = first + 1;
            while (last < changes.size() &&
                   changes[last].left - End(changes[last - 1]) <= 2 * options.context)
                ++last;
            ShowStretch(changes, first, last);
            first = last;
        }
        return differ_result::different;
    }

    TextSide left;
    TextSide right;

private:
    static std::size_t End(const RowChange& change) { return change.left + change.leftCount; }

    static CString Range(std::size_t start, std::size_t count)
    {
        return count == 1 ? Format(u"%u", start + 1)
                          : Format(u"%u,%u", count == 0 ? start : start + 1, count);
    }

    // The changes from `first` up to `last`, which share their surroundings.
    void ShowStretch(const std::vector<RowChange>& changes, std::size_t first, std::size_t last)
    {
        const RowChange& begin = changes[first];
        const RowChange& end = changes[last - 1];
        const std::size_t before = std::min(options.context, begin.left);
        const std::size_t after = std::min(options.context, left.lines.size() - End(end));
        const std::size_t leftStart = begin.left - before;
        const std::size_t rightStart = begin.right - before;
        output.Line(Format(u"@@ -%s +%s @@", Range(leftStart, End(end) + after - leftStart),
                           Range(rightStart, end.right + end.rightCount + after - rightStart)));
        std::size_t at = leftStart;
        for (std::size_t i = first; i < last; ++i) {
            Show(u' ', left.lines, at, changes[i].left);
            Show(u'-', left.lines, changes[i].left, End(changes[i]));
            Show(u'+', right.lines, changes[i].right, changes[i].right + changes[i].rightCount);
            at = End(changes[i]);
        }
        Show(u' ', left.lines, at, at + after);
    }

    void Show(char16_t mark, const std::vector<CString>& lines, std::size_t from, std::size_t to)
    {
        for (; from < to; ++from)
            output.Line(Format(u"%c%s", mark, lines[from]));
    }

    const FileDifferOptions& options;
    ListingOutput& output;
    std::unordered_map<CString, std::uint32_t, TextHash> known;
};

// Reads a file byte by byte out of blocks.
class ByteReader {
public:
    bool Open(const CString& name) { return file.Open(name); }
    // -1 at the end, -2 when reading failed.
    int Next()
    {
        if (at == held) {
            at = 0;
            if (!file.Read(block.data(), block.size(), held))
                return -2;
            if (held == 0)
                return -1;
        }
        return static_cast<unsigned char>(block[at++]);
    }

private:
    InputFile file;
    std::vector<char> block = std::vector<char>(std::size_t{1} << 18);
    std::size_t at = 0;
    std::size_t held = 0;
};

int ShowBytes(const CString& left, const CString& right, ListingOutput& output)
{
    ByteReader readers[2];
    if (!readers[0].Open(left))
        return Failed(left, 0, output);
    if (!readers[1].Open(right))
        return Failed(right, 0, output);
    for (std::uint64_t place = 0; !output.Refused(); ++place) {
        const int a = readers[0].Next();
        const int b = readers[1].Next();
        if (a == -2 || b == -2)
            return Failed(a == -2 ? left : right, 0, output);
        if (a < 0 && b < 0)
            break;
        if (a != b)
            output.Line(Format(u"%08X: %s %s", place, a < 0 ? CString(u"--") : Format(u"%02X", a),
                               b < 0 ? CString(u"--") : Format(u"%02X", b)));
    }
    return differ_result::different;
}

} // namespace

int DifferFiles(const CString& left, const CString& right, const FileDifferOptions& options,
                ListingOutput& output)
{
    const FileComparison comparison = CompareFiles(left, right);
    if (comparison.error)
        return Failed(comparison.failed, comparison.error, output);
    if (comparison.same)
        return differ_result::same;
    if (!options.bytes && IsText(left) && IsText(right)) {
        LineDiffer differ(options, output);
        if (!differ.Read(left, differ.left))
            return Failed(left, 0, output);
        if (!differ.Read(right, differ.right))
            return Failed(right, 0, output);
        return differ.Differ(left, right);
    }
    if (options.quiet)
        return differ_result::different;
    if (options.bytes)
        return ShowBytes(left, right, output);
    output.Line(LoadMessage(message::filesDiffer, left));
    output.Line(LoadMessage(message::foundAtPlace,
                            Format(u"%u (0x%X)", comparison.firstDifference, comparison.firstDifference)));
    return differ_result::different;
}
