#include "text/punycode.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "text/code_points.h"
#include "text/compare.h"

namespace {

using View = std::u16string_view;
using Points = std::u32string;

constexpr View prefix = u"xn--";
constexpr std::size_t longestLabel = 63;

// RFC 3492 names these so.
constexpr std::uint32_t base = 36;
constexpr std::uint32_t tMin = 1;
constexpr std::uint32_t tMax = 26;
constexpr std::uint32_t skew = 38;
constexpr std::uint32_t damp = 700;
constexpr std::uint32_t initialBias = 72;
constexpr std::uint32_t initialN = 0x80;
constexpr std::uint32_t lastPoint = 0x10FFFF;

std::uint32_t Adapt(std::uint32_t delta, std::uint32_t points, bool first)
{
    delta /= first ? damp : 2;
    delta += delta / points;
    std::uint32_t k = 0;
    for (; delta > (base - tMin) * tMax / 2; k += base)
        delta /= base - tMin;
    return k + (base - tMin + 1) * delta / (delta + skew);
}

std::uint32_t Threshold(std::uint32_t k, std::uint32_t bias)
{
    return k <= bias ? tMin : std::min(k - bias, tMax);
}

bool IsSurrogate(std::uint32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

Points PointsOf(View text)
{
    Points points;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::uint32_t code = CodePointAt(text, at);
        points += IsSurrogate(code) ? U'\uFFFD' : static_cast<char32_t>(code);
    }
    return points;
}

CString TextOf(const Points& points)
{
    CString text;
    for (const char32_t code : points)
        AppendCodePoint(text, code);
    return text;
}

void AppendNumber(CString& text, std::uint32_t number, std::uint32_t bias)
{
    constexpr View digits = u"abcdefghijklmnopqrstuvwxyz0123456789";
    for (std::uint32_t k = base;; k += base) {
        const std::uint32_t t = Threshold(k, bias);
        if (number < t)
            break;
        text.Append(digits[t + (number - t) % (base - t)]);
        number = (number - t) / (base - t);
    }
    text.Append(digits[number]);
}

// The label is short, so that nothing below can overflow.
CString EncodeLabel(const Points& points)
{
    CString text(prefix);
    for (const char32_t point : points) {
        if (point < initialN)
            text.Append(static_cast<char16_t>(point));
    }
    const auto basic = static_cast<std::uint32_t>(text.size() - prefix.size());
    if (basic > 0)
        text.Append(u'-');
    std::uint32_t n = initialN;
    std::uint32_t delta = 0;
    std::uint32_t bias = initialBias;
    for (std::uint32_t handled = basic; handled < points.size(); ++delta, ++n) {
        std::uint32_t next = lastPoint;
        for (const char32_t point : points)
            next = point >= n ? std::min<std::uint32_t>(next, point) : next;
        delta += (next - n) * (handled + 1);
        n = next;
        for (const char32_t point : points) {
            delta += point < n ? 1 : 0;
            if (point != n)
                continue;
            AppendNumber(text, delta, bias);
            bias = Adapt(delta, handled + 1, handled == basic);
            delta = 0;
            ++handled;
        }
    }
    return text;
}

std::uint32_t DigitValue(char16_t unit)
{
    const char16_t letter = LowerCase(unit);
    if (letter >= u'a' && letter <= u'z')
        return letter - u'a';
    return IsDigit(unit) ? unit - u'0' + 26u : base;
}

// Reads a number at the start of `text` and adds it to `sum`; false when it is malformed.
bool ReadNumber(View& text, std::uint32_t bias, std::uint64_t& sum)
{
    std::uint64_t weight = 1;
    for (std::uint32_t k = base;; k += base) {
        const std::uint32_t digit = text.empty() ? base : DigitValue(text[0]);
        if (digit == base)
            return false;
        text.remove_prefix(1);
        sum += digit * weight;
        if (sum > UINT32_MAX)
            return false;
        const std::uint32_t t = Threshold(k, bias);
        if (digit < t)
            return true;
        weight *= base - t;
        if (weight > UINT32_MAX)
            return false;
    }
}

std::optional<CString> DecodeLabel(View text)
{
    const std::size_t hyphen = text.rfind(u'-');
    Points points;
    if (hyphen != View::npos) {
        points = PointsOf(text.substr(0, hyphen));
        text.remove_prefix(hyphen + 1);
    }
    std::uint32_t n = initialN;
    std::uint32_t bias = initialBias;
    std::uint32_t place = 0;
    while (!text.empty()) {
        std::uint64_t sum = place;
        if (!ReadNumber(text, bias, sum))
            return std::nullopt;
        const auto count = static_cast<std::uint32_t>(points.size() + 1);
        const auto index = static_cast<std::uint32_t>(sum);
        bias = Adapt(index - place, count, place == 0);
        if (index / count > lastPoint - n)
            return std::nullopt;
        n += index / count;
        place = index % count;
        if (IsSurrogate(n))
            return std::nullopt;
        points.insert(place++, 1, static_cast<char32_t>(n));
    }
    return TextOf(points);
}

// The labels changed one by one and joined again.
template <typename Change> std::optional<CString> ChangeLabels(View name, Change change)
{
    CString changed;
    for (;;) {
        const std::size_t end = name.find(u'.');
        const std::optional<CString> label = change(name.substr(0, end));
        if (!label)
            return std::nullopt;
        changed.Append(*label);
        if (end == View::npos)
            return changed;
        changed.Append(u'.');
        name.remove_prefix(end + 1);
    }
}

} // namespace

std::optional<CString> EncodeDomain(View name)
{
    return ChangeLabels(name, [](View label) -> std::optional<CString> {
        CString lower(label);
        MakeLower(lower);
        const bool plain =
            std::all_of(label.begin(), label.end(), [](char16_t unit) { return unit < initialN; });
        if (label.size() > longestLabel)
            return std::nullopt;
        CString encoded = plain ? CString(label) : EncodeLabel(PointsOf(lower));
        return encoded.size() > longestLabel ? std::nullopt : std::optional(encoded);
    });
}

std::optional<CString> DecodeDomain(View name)
{
    return ChangeLabels(name, [](View label) -> std::optional<CString> {
        if (!BeginsNoCase(label, prefix))
            return CString(label);
        return label.size() > longestLabel ? std::nullopt : DecodeLabel(label.substr(prefix.size()));
    });
}
