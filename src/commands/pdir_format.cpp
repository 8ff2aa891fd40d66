#include "commands/pdir_format.h"

#include <algorithm>

#include "text/compare.h"

namespace {

struct FieldKind {
    char16_t letter;
    std::u16string_view modifiers;
};

constexpr FieldKind fieldKinds[] = {
    {u'a', u""},         {u'b', u""},     {u'c', u"125"}, {u'd', u"acwu"}, {u'e', u""}, {u'f', u""},
    {u'h', u""},         {u'i', u""},     {u'l', u""},    {u'n', u""},     {u'o', u""}, {u'p', u""},
    {u's', u"cdkKmMgG"}, {u't', u"acwu"}, {u'x', u""},    {u'y', u""},
};

class Reader {
public:
    explicit Reader(std::u16string_view format) : text(format) {}

    bool Read(std::vector<PdirField>& fields)
    {
        while (at < text.size())
            if (!ReadOne(fields))
                return false;
        return true;
    }
    std::size_t Place() const { return at; }

private:
    bool ReadOne(std::vector<PdirField>& fields)
    {
        if (text[at] == u'\'')
            return ReadQuoted(fields);
        PdirField field;
        std::size_t next = at;
        const bool left = text[next] == u'-';
        if (left)
            ++next;
        const std::size_t digits = next;
        while (next < text.size() && IsDigit(text[next]) && next - digits < 4)
            field.width = field.width * 10 + (text[next++] - u'0');
        const bool hasWidth = next > digits;
        if (hasWidth || text[at] == u'@' || IsAsciiLetter(text[at])) {
            if (next == text.size())
                return false;
            at = next;
            field.width = left ? -field.width : field.width;
            return (text[at] == u'@' ? ReadFunction(field, fields) : ReadField(field, fields));
        }
        AddText(text.substr(at++, 1), fields);
        return true;
    }

    static void AddText(std::u16string_view more, std::vector<PdirField>& fields)
    {
        if (fields.empty() || fields.back().letter != 0)
            fields.emplace_back();
        fields.back().text.Append(more);
    }

    bool ReadQuoted(std::vector<PdirField>& fields)
    {
        const std::size_t end = text.find(u'\'', at + 1);
        if (end == text.npos)
            return false;
        AddText(text.substr(at + 1, end - at - 1), fields);
        at = end + 1;
        return true;
    }

    bool ReadField(PdirField& field, std::vector<PdirField>& fields)
    {
        const char16_t letter = LowerCase(text[at]);
        const auto kind = std::find_if(std::begin(fieldKinds), std::end(fieldKinds),
                                       [letter](const FieldKind& one) { return one.letter == letter; });
        if (kind == std::end(fieldKinds))
            return false;
        field.letter = letter;
        for (++at; at < text.size() && kind->modifiers.find(text[at]) != text.npos; ++at)
            field.text.Append(text[at]);
        fields.push_back(field);
        return true;
    }

    bool ReadFunction(PdirField& field, std::vector<PdirField>& fields)
    {
        int depth = 0;
        std::size_t end = at;
        while (end < text.size()) {
            const char16_t unit = text[end++];
            depth += unit == u'[' ? 1 : unit == u']' ? -1 : 0;
            if (unit == u']' && depth == 0)
                break;
        }
        if (depth != 0 || end <= at + 3 || text[end - 1] != u']')
            return false;
        field.letter = u'@';
        field.text = text.substr(at, end - at);
        fields.push_back(field);
        at = end;
        return true;
    }

    std::u16string_view text;
    std::size_t at = 0;
};

} // namespace

std::optional<std::vector<PdirField>> ReadPdirFormat(std::u16string_view format, std::size_t& mistake)
{
    std::vector<PdirField> fields;
    Reader reader(format);
    if (reader.Read(fields))
        return fields;
    mistake = std::min(reader.Place(), format.size());
    return std::nullopt;
}
