#include "config/ini_save.h"

#include <windows.h>

#include "config/ini_file.h"
#include "config/ini_parser.h"
#include "config/ini_writer.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/codepage.h"
#include "platform/whole_file.h"

namespace {

class SystemAnsi final : public AnsiConverter {
public:
    CString FromAnsi(std::string_view bytes) override { return FromCodePage(bytes, GetACP()); }
    std::string ToAnsi(std::u16string_view text) override { return ToCodePage(text, GetACP()); }
};

void ApplyAll(IniDocument& document, const SettingIndexes& what, IniSaving how)
{
    const int otherShells = aGlobals.secondary ? ini_section::primary : ini_section::secondary;
    auto apply = [&](IniChange change) {
        change.remove = change.remove || how == IniSaving::Nothing;
        document.Apply(change, otherShells);
    };
    for (const int index : what.directives) {
        const Directive& directive = aDirectives[static_cast<std::size_t>(index)];
        if (directive.Type() != DirectiveType::Include)
            apply(ChangeForSetting(directive, aIniFile));
    }
    for (const int function : what.keyFunctions) {
        IniChange change;
        change.name = aKeyFunctions[static_cast<std::size_t>(function)].name;
        change.value = aKeyBindings.Keys(function);
        apply(change);
    }
}

} // namespace

int SaveToIniFile(const SettingIndexes& what, IniSaving how)
{
    const CString file = aTexts.iniFile;
    if (!aIniFile.UpdateINI)
        return MVError(errors::iniProtected, file);
    if (file.empty())
        return MVError(errors::noIniFile);
    const NamedLock::Guard guard = LockIniFiles();
    std::string bytes;
    if (!ReadWholeFile(file, bytes, largestIniFile))
        return MVError(0, file);
    SystemAnsi ansi;
    IniDocument document(bytes, ansi);
    ApplyAll(document, what, how);
    const std::string changed = document.Bytes();
    return changed == bytes || ReplaceWholeFile(file, changed) ? result::success : MVError(0, file);
}
