#include "config/settings_area.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "config/setting_values.h"

namespace {

static_assert(settingsAreaBytes > sizeof(INIFILE));
static_assert(sizeof(INIFILE) % sizeof(char16_t) == 0);

// The addresses mean nothing in another process.
void ForgetTexts(INIFILE& ini)
{
    for (const Directive& directive : aDirectives)
        if (directive.IsText())
            ini.*directive.field.text = nullptr;
}

std::size_t CountTexts()
{
    return static_cast<std::size_t>(
        std::count_if(aDirectives.begin(), aDirectives.end(), [](const Directive& d) { return d.IsText(); }));
}

} // namespace

void WriteSettingsArea(const INIFILE& ini, std::span<std::byte> area)
{
    INIFILE image = ini;
    ForgetTexts(image);
    std::memcpy(area.data(), &image, sizeof image);

    std::span<std::byte> room = area.subspan(sizeof image);
    std::size_t endsToCome = CountTexts(); // a NUL for each text that is not written yet
    for (const Directive& directive : aDirectives) {
        if (!directive.IsText())
            continue;
        std::u16string_view text = SettingString(directive, ini);
        if (text.size() + endsToCome > room.size() / sizeof(char16_t))
            text = {};
        const std::span<const std::byte> bytes = std::as_bytes(std::span(text));
        std::copy(bytes.begin(), bytes.end(), room.begin());
        std::fill_n(room.begin() + static_cast<std::ptrdiff_t>(bytes.size()), sizeof(char16_t), std::byte{});
        room = room.subspan(bytes.size() + sizeof(char16_t));
        --endsToCome;
    }
}

bool ReadSettingsArea(std::span<const std::byte> area, INIFILE& ini)
{
    INIFILE image{};
    if (area.size() < sizeof image)
        return false;
    std::memcpy(&image, area.data(), sizeof image);
    if (image.format != iniFormat || image.formatCheck != iniFormatCheck)
        return false;
    ForgetTexts(image);
    ini = image;

    // A copy: the owner may be writing.
    std::u16string texts((area.size() - sizeof image) / sizeof(char16_t), u'\0');
    std::memcpy(texts.data(), area.data() + sizeof image, texts.size() * sizeof(char16_t));
    std::u16string_view rest = texts;
    for (const Directive& directive : aDirectives) {
        if (!directive.IsText())
            continue;
        const std::u16string_view text = rest.substr(0, rest.find(u'\0'));
        SetSettingString(directive, ini, text);
        rest.remove_prefix(std::min(text.size() + 1, rest.size()));
    }
    return true;
}
