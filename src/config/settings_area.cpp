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

class TextWriter {
public:
    TextWriter(std::span<std::byte> area, std::size_t texts) : room(area), endsToCome(texts) {}

    void Write(std::u16string_view text)
    {
        if (text.size() + endsToCome > room.size() / sizeof(char16_t))
            text = {};
        const std::span<const std::byte> bytes = std::as_bytes(std::span(text));
        std::copy(bytes.begin(), bytes.end(), room.begin());
        std::fill_n(room.begin() + static_cast<std::ptrdiff_t>(bytes.size()), sizeof(char16_t), std::byte{});
        room = room.subspan(bytes.size() + sizeof(char16_t));
        --endsToCome;
    }

private:
    std::span<std::byte> room;
    std::size_t endsToCome; // a NUL for each text that is not written yet
};

class TextReader {
public:
    explicit TextReader(std::span<const std::byte> area) : texts(area.size() / sizeof(char16_t), u'\0')
    {
        std::memcpy(texts.data(), area.data(), texts.size() * sizeof(char16_t));
    }

    std::u16string_view Read()
    {
        const std::u16string_view rest = std::u16string_view(texts).substr(at);
        const std::u16string_view text = rest.substr(0, rest.find(u'\0'));
        at = std::min(at + text.size() + 1, texts.size());
        return text;
    }

private:
    std::u16string texts; // a copy: the owner may be writing
    std::size_t at = 0;
};

} // namespace

void WriteSettingsArea(const INIFILE& ini, std::u16string_view iniFile, std::span<std::byte> area)
{
    INIFILE image = ini;
    ForgetTexts(image);
    std::memcpy(area.data(), &image, sizeof image);
    TextWriter texts(area.subspan(sizeof image), CountTexts() + 1);
    for (const Directive& directive : aDirectives)
        if (directive.IsText())
            texts.Write(SettingString(directive, ini));
    texts.Write(iniFile);
}

bool ReadSettingsArea(std::span<const std::byte> area, INIFILE& ini, CString& iniFile)
{
    INIFILE image{};
    if (area.size() < sizeof image)
        return false;
    std::memcpy(&image, area.data(), sizeof image);
    if (image.format != iniFormat || image.formatCheck != iniFormatCheck)
        return false;
    ForgetTexts(image);
    ini = image;
    TextReader texts(area.subspan(sizeof image));
    for (const Directive& directive : aDirectives)
        if (directive.IsText())
            SetSettingString(directive, ini, texts.Read());
    iniFile = texts.Read();
    return true;
}
