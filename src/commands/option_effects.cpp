#include "commands/option_effects.h"

#include <algorithm>
#include <iterator>

#include "config/directives.h"
#include "config/ini_file.h"
#include "console/console_look.h"
#include "console/console_modes.h"
#include "engine/language_library.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "platform/console.h"
#include "platform/system_folder_view.h"
#include "text/compare.h"
#include "text/format.h"

namespace {

// Where lists are kept, and how large they are.
bool ConcernsLists(std::u16string_view name)
{
    return BeginsNoCase(name, u"Local") || BeginsNoCase(name, u"Global") || EndsNoCase(name, u"Size") ||
           name == u"History" || name == u"DirHistory";
}

bool IsDelayedExpansion(std::u16string_view name) { return name == u"DelayedExpansion"; }
bool IsExtensions(std::u16string_view name) { return name == u"CMDExtensions"; }
bool IsLanguage(std::u16string_view name) { return name == u"LanguageDLL"; }
bool IsScreenColor(std::u16string_view name) { return name == u"StdColors"; }
bool IsOpacity(std::u16string_view name) { return name == u"Transparency"; }
bool IsSystemFolder(std::u16string_view name) { return name == u"Wow64FsRedirection"; }
bool IsWindowPlace(std::u16string_view name)
{
    return name == u"WindowState" || name == u"WindowX" || name == u"WindowY" || name == u"WindowWidth" ||
           name == u"WindowHeight";
}

void TakeDelayedExpansion() { aGlobals.delayedExpansion = aIniFile.DelayedExpansion; }
void TakeExtensions() { aGlobals.cmdExtensions = aIniFile.CMDExtensions; }

void ColorWhatFollows()
{
    if (HasConsole())
        SetTextAttributes(StandardColors());
}

void TakeSystemFolder() { RedirectSystemFolder(aIniFile.Wow64FsRedirection != 0); }

struct Effect {
    bool (*concerns)(std::u16string_view name);
    void (*carryOut)();
};
constexpr Effect effects[] = {
    {ConcernsLists, InitializeLocalGlobalLists},
    {IsDelayedExpansion, TakeDelayedExpansion},
    {IsExtensions, TakeExtensions},
    {IsLanguage, LoadLanguageOfSettings},
    {IsScreenColor, ColorWhatFollows},
    {IsOpacity, MakeWindowAsOpaqueAsSet},
    {IsWindowPlace, PlaceWindowAsSet},
    {IsSystemFolder, TakeSystemFolder},
};

} // namespace

void ApplySettingEffects(const std::vector<int>& directives)
{
    for (const Effect& effect : effects) {
        const bool wanted = std::any_of(directives.begin(), directives.end(), [&](int index) {
            return effect.concerns(aDirectives[static_cast<std::size_t>(index)].name);
        });
        if (wanted)
            effect.carryOut();
    }
}

int ChangeSetting(std::u16string_view name, std::u16string_view value)
{
    if (const int code = ObeyIniLine(Format(u"%s=%s", name, value), SettingOrigin::Command))
        return code;
    if (const int index = FindDirective(name); index >= 0)
        ApplySettingEffects({index});
    return result::success;
}
