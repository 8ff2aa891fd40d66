#include "config/setting_values.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "config/colors.h"
#include "config/key_names.h"
#include "config/protected_text.h"
#include "lang/errors.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/path_names.h"
#include "text/words.h"

namespace {

constexpr std::u16string_view wordEnds = u" \t;";

// The text up to the first unit of `ends`.
std::u16string_view CutAt(std::u16string_view text, std::u16string_view ends)
{
    return text.substr(0, std::min(text.find_first_of(ends), text.size()));
}

unsigned ApplyCharacter(const Directive& directive, std::u16string_view word, INIFILE& ini)
{
    const std::uint32_t range = directive.validator.word;
    const auto code = CharacterCode(word);
    if (!code || (range != 0 && (*code < (range >> 8 & 0xFF) || *code > (range & 0xFF))))
        return errors::iniCharacter;
    ini.*directive.field.character = *code;
    return 0;
}

// A decimal number and nothing else.
std::optional<std::int64_t> WholeNumber(std::u16string_view word)
{
    std::size_t used = 0;
    const auto number = ReadDecimal(word, &used);
    return number && used == word.size() ? number : std::nullopt;
}

unsigned ApplySigned(const Directive& directive, std::u16string_view word, INIFILE& ini)
{
    constexpr SignedRange all{std::numeric_limits<std::int32_t>::min(),
                              std::numeric_limits<std::int32_t>::max()};
    const SignedRange& range = directive.validator.signedRange ? *directive.validator.signedRange : all;
    const auto number = WholeNumber(word);
    if (!number || *number < range.minimum || *number > range.maximum)
        return errors::iniNumber;
    ini.*directive.field.number = static_cast<std::int32_t>(*number);
    return 0;
}

unsigned ApplyUnsigned(const Directive& directive, std::u16string_view word, INIFILE& ini)
{
    constexpr UnsignedRange all{0, std::numeric_limits<std::uint32_t>::max()};
    const UnsignedRange& range = directive.validator.unsignedRange ? *directive.validator.unsignedRange : all;
    const auto number = WholeNumber(word);
    if (!number || *number < range.minimum || *number > range.maximum)
        return errors::iniNumber;
    ini.*directive.field.count = static_cast<std::uint32_t>(*number);
    return 0;
}

unsigned ApplyChoice(const Directive& directive, std::u16string_view word, INIFILE& ini)
{
    const ChoiceList& list = *directive.validator.choices;
    for (std::uint32_t i = 0; i < list.count; ++i) {
        if (EqualNoCase(word, list.names[i])) {
            ini.*directive.field.number = static_cast<SettingChoice>(i);
            return 0;
        }
    }
    return errors::iniChoice;
}

unsigned ApplyColor(const Directive& directive, std::u16string_view text, INIFILE& ini)
{
    const auto pair = ParseColorPair(WithoutOuterQuotes(text));
    if (!pair)
        return errors::iniColor;
    ini.*directive.field.count = *pair;
    return 0;
}

unsigned ApplyPath(const Directive& directive, std::u16string_view text, INIFILE& ini, PathCheck& disk)
{
    const CString path = WithoutQuotes(text);
    const std::uint32_t check = directive.validator.word;
    if (!path.empty() && (check & path_check::none) == 0) {
        const bool partOnly = (check & path_check::directoryPart) != 0;
        const std::u16string_view directory = partOnly ? DirectoryPart(path) : path.view();
        if (!(partOnly && directory.empty()) && !disk.IsDirectory(directory))
            return errors::iniPath;
    }
    SetSettingString(directive, ini, path);
    return 0;
}

} // namespace

unsigned ApplyValue(const Directive& directive, std::u16string_view text, INIFILE& ini, PathCheck& disk)
{
    switch (directive.Type()) {
    case DirectiveType::Character: return ApplyCharacter(directive, CutAt(text, wordEnds), ini);
    case DirectiveType::Signed: return ApplySigned(directive, CutAt(text, wordEnds), ini);
    case DirectiveType::Unsigned: return ApplyUnsigned(directive, CutAt(text, wordEnds), ini);
    case DirectiveType::Choice: return ApplyChoice(directive, CutAt(text, wordEnds), ini);
    case DirectiveType::Color: return ApplyColor(directive, CutAt(text, u";"), ini);
    case DirectiveType::String: SetSettingString(directive, ini, CutAt(text, u"\t")); return 0;
    case DirectiveType::Path: return ApplyPath(directive, CutAt(text, u"\t"), ini, disk);
    case DirectiveType::Protected: SetSettingString(directive, ini, Decipher(CutAt(text, u"\t"))); return 0;
    case DirectiveType::Include: return 0;
    }
    return 0;
}

bool FormatValue(const Directive& directive, const INIFILE& ini, CString& value)
{
    value.Clear();
    switch (directive.Type()) {
    case DirectiveType::Character:
        value = Format(u"%c", static_cast<char16_t>(ini.*directive.field.character));
        return true;
    case DirectiveType::Signed: value = Format(u"%d", ini.*directive.field.number); return true;
    case DirectiveType::Unsigned:
    case DirectiveType::Color: value = Format(u"%u", ini.*directive.field.count); return true;
    case DirectiveType::Choice: {
        const char16_t* name = ChoiceName(directive, ini.*directive.field.number);
        value = name;
        return name != nullptr;
    }
    case DirectiveType::String:
    case DirectiveType::Path: value = SettingString(directive, ini); return true;
    case DirectiveType::Protected: return true;
    case DirectiveType::Include: return false;
    }
    return false;
}

std::u16string_view SettingString(const Directive& directive, const INIFILE& ini)
{
    const char16_t* text = ini.*directive.field.text;
    return text ? std::u16string_view(text) : std::u16string_view();
}

void SetSettingString(const Directive& directive, INIFILE& ini, std::u16string_view text)
{
    SettingText& field = ini.*directive.field.text;
    SettingText fresh = nullptr;
    if (!text.empty()) {
        fresh = new char16_t[text.size() + 1];
        std::copy(text.begin(), text.end(), fresh);
        fresh[text.size()] = u'\0';
    }
    delete[] field; // only now: the text may be the old value itself
    field = fresh;
}

void ResetValue(const Directive& directive, INIFILE& ini)
{
    switch (directive.Type()) {
    case DirectiveType::Character:
        ini.*directive.field.character = static_cast<SettingCharacter>(directive.standard);
        break;
    case DirectiveType::Signed:
    case DirectiveType::Choice:
        ini.*directive.field.number = static_cast<std::int32_t>(directive.standard);
        break;
    case DirectiveType::Unsigned:
    case DirectiveType::Color: ini.*directive.field.count = directive.standard; break;
    case DirectiveType::String:
    case DirectiveType::Path:
    case DirectiveType::Protected: SetSettingString(directive, ini, {}); break;
    case DirectiveType::Include: break;
    }
}

void IniClear(INIFILE* ini)
{
    *ini = INIFILE{};
    for (const Directive& directive : aDirectives)
        ResetValue(directive, *ini);
}

void FreeSettingStrings(INIFILE& ini)
{
    for (const Directive& directive : aDirectives)
        if (directive.IsText())
            SetSettingString(directive, ini, {});
}
