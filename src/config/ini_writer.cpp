#include "config/ini_writer.h"

#include <algorithm>

#include "config/colors.h"
#include "config/ini_parser.h"
#include "config/protected_text.h"
#include "config/setting_values.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";

// A line without the blanks and the line end around it, and where it stands in the whole.
struct Content {
    std::size_t start = 0;
    std::u16string_view text;
};

Content ContentOf(std::u16string_view line)
{
    constexpr std::u16string_view around = u" \t\r\n";
    const std::size_t start = line.find_first_not_of(around);
    if (start == npos)
        return {};
    return {start, line.substr(start, line.find_last_not_of(around) + 1 - start)};
}

bool IsComment(std::u16string_view content) { return content.starts_with(u';'); }

// A line with "%" has its variables expanded when it is read.
CString DoublePercents(std::u16string_view text)
{
    CString doubled;
    for (const char16_t unit : text)
        doubled.Append(unit == u'%' ? std::u16string_view(u"%%") : std::u16string_view(&unit, 1));
    return doubled;
}

// The characters that a line of an INI file cannot hold as themselves are written as their code.
CString CharacterText(SettingCharacter code)
{
    const auto unit = static_cast<char16_t>(code);
    const bool plain = unit > u' ' && unit < u'\x7F' && std::u16string_view(u";=%").find(unit) == npos;
    return plain ? CString(1, unit) : Format(u"0x%02X", unsigned{code});
}

CString OneLine(std::u16string_view text)
{
    CString line(text);
    for (std::size_t i = 0; i < line.size(); ++i)
        if (line[i] < u' ')
            line.Set(i, u' ');
    return line.Trim();
}

std::u16string_view ValueEnds(DirectiveType type)
{
    switch (type) {
    case DirectiveType::Color: return u";";
    case DirectiveType::String:
    case DirectiveType::Path:
    case DirectiveType::Protected:
    case DirectiveType::Include: return u"\t";
    default: return u" \t;";
    }
}

bool IsInclude(const IniItem& item)
{
    const int index = FindDirective(item.name);
    return index >= 0 && aDirectives[static_cast<std::size_t>(index)].Type() == DirectiveType::Include;
}

} // namespace

CString IniValueText(const Directive& directive, const INIFILE& ini)
{
    CString value;
    switch (directive.Type()) {
    case DirectiveType::Character: return CharacterText(ini.*directive.field.character);
    case DirectiveType::Color:
        return ini.*directive.field.count ? ColorText(ini.*directive.field.count) : CString();
    case DirectiveType::String:
    case DirectiveType::Path: return DoublePercents(OneLine(SettingString(directive, ini)));
    case DirectiveType::Protected: {
        const std::u16string_view password = SettingString(directive, ini);
        return password.empty() ? CString() : DoublePercents(Encipher(password));
    }
    default: FormatValue(directive, ini, value); return value;
    }
}

IniChange ChangeForSetting(const Directive& directive, const INIFILE& ini)
{
    IniChange change{directive.name, IniValueText(directive, ini), ValueEnds(directive.Type())};
    // Only texts can be told to be "not set".
    change.remove = change.value.empty() && !directive.IsText();
    return change;
}

struct IniDocument::Found {
    std::vector<std::size_t> matches;
    std::size_t lastInclude = npos;
    std::size_t lastSetting = npos; // before the first section
    std::size_t firstHeader = npos;
};

IniDocument::IniDocument(std::string_view bytes, AnsiConverter& converter) : ansi(converter)
{
    const RecognisedEncoding recognised = RecogniseEncoding(bytes);
    encoding = recognised.encoding;
    if (encoding == TextEncoding::Utf8 && recognised.markLength == 0 && !IsValidUtf8(bytes))
        encoding = TextEncoding::CodePage;
    mark = bytes.substr(0, recognised.markLength);
    CutLines(bytes.substr(recognised.markLength));
}

void IniDocument::CutLines(std::string_view bytes)
{
    const std::size_t width = encoding == TextEncoding::Utf16 ? 2 : 1;
    std::size_t start = 0;
    std::size_t at = 0;
    for (; at + width <= bytes.size(); at += width) {
        if (bytes[at] != '\n' || (width == 2 && bytes[at + 1] != '\0'))
            continue;
        lines.emplace_back(bytes.substr(start, at + width - start));
        start = at + width;
    }
    if (at > start)
        lines.emplace_back(bytes.substr(start, at - start));
    tail = bytes.substr(at);
}

CString IniDocument::Decode(std::string_view line) const
{
    if (encoding == TextEncoding::Utf8)
        return FromUtf8(line);
    if (encoding == TextEncoding::CodePage)
        return ansi.FromAnsi(line);
    CString text;
    for (std::size_t at = 0; at + 1 < line.size(); at += 2)
        text.Append(static_cast<char16_t>(static_cast<unsigned char>(line[at]) |
                                          static_cast<unsigned char>(line[at + 1]) << 8));
    return text;
}

std::string IniDocument::Encode(std::u16string_view line)
{
    std::string bytes;
    if (encoding == TextEncoding::CodePage) {
        bytes = ansi.ToAnsi(line);
        if (ansi.FromAnsi(bytes) == line)
            return bytes;
        BecomeUtf8();
    }
    if (encoding == TextEncoding::Utf8)
        return ToUtf8(line);
    for (const char16_t unit : line) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

void IniDocument::BecomeUtf8()
{
    for (std::string& line : lines)
        line = ToUtf8(Decode(line));
    encoding = TextEncoding::Utf8;
    mark = utf8Mark;
}

// Calls `header` for each section header and `visit` with what each line sets, its number from 0 and the
// section that it stands in.
template <typename Header, typename Item>
void IniDocument::Walk(int skipMask, Header header, Item visit) const
{
    int section = ini_section::none;
    for (std::size_t at = 0; at < lines.size(); ++at) {
        const CString line = Decode(lines[at]);
        const Content content = ContentOf(line);
        if (content.text.empty() || IsComment(content.text))
            continue;
        if (content.text.front() == u'[') {
            section = IniSectionOf(content.text);
            header(at);
        } else if ((section & (ini_section::unknown | ini_section::disabled | skipMask)) == 0) {
            visit(CutIniItem(content.text), at, section);
        }
    }
}

IniDocument::Found IniDocument::Look(std::u16string_view name, int skipMask) const
{
    Found found;
    auto header = [&](std::size_t at) { found.firstHeader = std::min(found.firstHeader, at); };
    Walk(skipMask, header, [&](const IniItem& item, std::size_t at, int section) {
        if (section == ini_section::none)
            found.lastSetting = at;
        if (IsInclude(item))
            found.lastInclude = at;
        else if (EqualNoCase(item.name, name))
            found.matches.push_back(at);
    });
    return found;
}

std::vector<IniDocument::SettingLine> IniDocument::SettingLines(int skipMask) const
{
    std::vector<SettingLine> found;
    Walk(
        skipMask, [](std::size_t) {},
        [&](const IniItem& item, std::size_t at, int) {
            found.push_back({item.name, static_cast<std::uint32_t>(at + 1)});
        });
    return found;
}

void IniDocument::Apply(const IniChange& change, int skipMask)
{
    const Found found = Look(change.name, skipMask);
    if (change.remove) {
        for (std::size_t i = found.matches.size(); i-- > 0;)
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(found.matches[i]));
        return;
    }
    const bool included = found.lastInclude != npos;
    if (!found.matches.empty() && (!included || found.matches.back() > found.lastInclude))
        return ReplaceValue(found.matches.back(), change);
    std::size_t at = lines.size();
    if (included) {
        at = found.lastInclude + 1;
    } else if (found.lastSetting != npos) {
        at = found.lastSetting + 1;
    } else if (found.firstHeader != npos) {
        // Behind the comment that speaks of the whole file, which a blank line parts from the next one.
        at = 0;
        while (at < found.firstHeader && !ContentOf(Decode(lines[at])).text.empty())
            ++at;
        if (at == found.firstHeader)
            at = 0;
    }
    InsertLine(at, Format(u"%s=%s", change.name, change.value));
}

void IniDocument::ReplaceValue(std::size_t at, const IniChange& change)
{
    CString line = Decode(lines[at]);
    const Content content = ContentOf(line);
    const IniItem item = CutIniItem(content.text);
    const std::size_t valueAt = content.text.size() - item.value.size();
    const std::size_t length = std::min(item.value.find_first_of(change.valueEnds), item.value.size());
    const std::size_t blanks = length - ContentOf(item.value.substr(0, length)).text.size();
    CString fresh(change.value);
    if (content.text.substr(item.name.size(), valueAt - item.name.size()).find(u'=') == npos)
        fresh.Insert(0, u"=");
    if (length == 0 && !item.value.empty())
        fresh.Append(u' '); // a comment follows
    line.Replace(content.start + valueAt, length - blanks, fresh);
    const std::string bytes = Encode(line);
    lines[at] = bytes;
}

void IniDocument::InsertLine(std::size_t at, std::u16string_view content)
{
    const CString end = UsualLineEnd();
    if (at > 0 && Decode(lines[at - 1]).back() != u'\n') {
        const std::string bytes = Encode(end);
        lines[at - 1] += bytes;
    }
    const std::string bytes = Encode(CString(content) + end);
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), bytes);
}

CString IniDocument::UsualLineEnd() const
{
    if (lines.empty())
        return u"\r\n";
    const CString first = Decode(lines.front());
    const bool bare = first.back() == u'\n' && (first.size() < 2 || first[first.size() - 2] != u'\r');
    return bare ? u"\n" : u"\r\n";
}

std::string IniDocument::Bytes()
{
    auto join = [this] {
        std::string bytes = mark;
        for (const std::string& line : lines)
            bytes += line;
        return bytes + tail;
    };
    std::string bytes = join();
    if (encoding == TextEncoding::CodePage && RecogniseEncoding(bytes).encoding != TextEncoding::CodePage) {
        BecomeUtf8(); // by accident it would pass for something else
        bytes = join();
    }
    return bytes;
}
