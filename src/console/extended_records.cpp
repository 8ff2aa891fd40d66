#include "console/extended_records.h"

#include <charconv>

#include "text/calendar.h"
#include "text/encoding.h"
#include "text/format.h"

namespace {

constexpr std::size_t npos = std::string_view::npos;
constexpr std::uint64_t unitsPerMillisecond = 10'000; // of file times
constexpr std::int64_t millisecondsPerDay = 86'400'000;
constexpr std::size_t longestRecord = std::size_t{4} << 20; // bytes: a line of a million units and its folder

std::int64_t FirstDay() { return calendar::DayNumber({1601, 1, 1}); }

// "2026-11-21T16:10:17.123Z".
CString WriteTime(std::uint64_t fileTime)
{
    const auto milliseconds = static_cast<std::int64_t>(fileTime / unitsPerMillisecond);
    const calendar::Date date = calendar::DateOfDay(FirstDay() + milliseconds / millisecondsPerDay);
    const auto ofDay = static_cast<int>(milliseconds % millisecondsPerDay);
    return Format(u"%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", date.year, date.month, date.day, ofDay / 3'600'000,
                  ofDay / 60'000 % 60, ofDay / 1000 % 60, ofDay % 1000);
}

template <typename Number> bool ReadNumber(std::string_view text, Number& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool ReadTime(std::string_view text, std::uint64_t& fileTime)
{
    constexpr std::string_view shape = "0000-00-00T00:00:00.000Z";
    if (text.size() != shape.size())
        return false;
    for (std::size_t i = 0; i < shape.size(); ++i)
        if (shape[i] == '0' ? text[i] < '0' || text[i] > '9' : text[i] != shape[i])
            return false;
    auto number = [&](std::size_t at, std::size_t length) {
        int value = 0;
        ReadNumber(text.substr(at, length), value);
        return value;
    };
    const calendar::Date date{number(0, 4), number(5, 2), number(8, 2)};
    if (!calendar::IsDate(date) || date.year < 1601)
        return false;
    const std::int64_t ofDay =
        ((number(11, 2) * 60 + number(14, 2)) * 60 + number(17, 2)) * std::int64_t{1000} + number(20, 3);
    const std::int64_t days = calendar::DayNumber(date) - FirstDay();
    fileTime = static_cast<std::uint64_t>(days * millisecondsPerDay + ofDay) * unitsPerMillisecond;
    return true;
}

constexpr std::string_view escapedBytes = "\\\t\r\n";
constexpr std::string_view escapeLetters = "\\trn";

void AppendText(std::string& record, const CString& text)
{
    for (const char byte : ToUtf8(text)) {
        const std::size_t escape = escapedBytes.find(byte);
        if (escape == npos)
            record.push_back(byte);
        else
            record.append({'\\', escapeLetters[escape]});
    }
}

CString ReadText(std::string_view field)
{
    std::string bytes;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const std::size_t letter =
            field[i] == '\\' && i + 1 < field.size() ? escapeLetters.find(field[i + 1]) : npos;
        if (letter != npos)
            ++i;
        bytes.push_back(letter == npos ? field[i] : escapedBytes[letter]);
    }
    return FromUtf8(bytes);
}

std::string_view TakeField(std::string_view& record)
{
    const std::size_t end = record.find('\t');
    const std::string_view field = record.substr(0, end);
    record.remove_prefix(end == npos ? record.size() : end + 1);
    return field;
}

} // namespace

std::string WriteExtendedRecord(const ExtendedEntry& entry)
{
    std::string record = ToUtf8(WriteTime(entry.started));
    record += '\t' + std::to_string(entry.milliseconds) + '\t' + std::to_string(entry.exitCode) + '\t';
    AppendText(record, entry.directory);
    record += '\t';
    AppendText(record, entry.line);
    return record += '\n';
}

std::optional<ExtendedEntry> ReadExtendedRecord(std::string_view record)
{
    if (record.size() > longestRecord)
        return {};
    ExtendedEntry entry;
    if (!ReadTime(TakeField(record), entry.started) || !ReadNumber(TakeField(record), entry.milliseconds) ||
        !ReadNumber(TakeField(record), entry.exitCode))
        return {};
    entry.directory = ReadText(TakeField(record));
    entry.line = ReadText(record);
    if (entry.line.empty())
        return {};
    return entry;
}

CString DurationInShort(std::uint64_t milliseconds)
{
    const std::uint64_t seconds = milliseconds / 1000;
    if (seconds < 60)
        return Format(u"%lu.%lus", seconds, milliseconds / 100 % 10);
    return seconds < 3600 ? Format(u"%lu:%02lu", seconds / 60, seconds % 60)
                          : Format(u"%lu:%02lu:%02lu", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

std::vector<ExtendedEntry> ReadExtendedRecords(std::string_view bytes)
{
    std::vector<ExtendedEntry> entries;
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        std::string_view record = bytes.substr(0, end);
        if (record.ends_with('\r'))
            record.remove_suffix(1);
        if (std::optional<ExtendedEntry> entry = ReadExtendedRecord(record))
            entries.push_back(std::move(*entry));
        bytes.remove_prefix(end == npos ? bytes.size() : end + 1);
    }
    return entries;
}

std::string_view NewestRecords(std::string_view bytes, std::size_t most)
{
    if (bytes.size() <= most)
        return bytes;
    const std::size_t lineEnd = bytes.find('\n', bytes.size() - most - 1);
    return lineEnd == npos ? std::string_view() : bytes.substr(lineEnd + 1);
}
