#include "config/ini_save.h"

#include <algorithm>

#include <windows.h>

#include "config/ini_file.h"
#include "config/ini_parser.h"
#include "config/ini_writer.h"
#include "config/provenance.h"
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

int OtherShells() { return aGlobals.secondary ? ini_section::primary : ini_section::secondary; }

void ApplyAll(IniDocument& document, const SettingIndexes& what, IniSaving how)
{
    const int otherShells = OtherShells();
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

// What was saved comes from the file now, and other lines of the file may have moved.
void NoteSources(const IniDocument& document, const CString& file, const std::vector<int>& saved)
{
    const std::uint32_t fileIndex = aSettingSources.FileIndex(file);
    auto isFromHere = [&](int index) {
        const SettingSource& source = aSettingSources.rows[static_cast<std::size_t>(index)];
        return (source.origin == SettingOrigin::File && source.file == fileIndex) ||
               std::find(saved.begin(), saved.end(), index) != saved.end();
    };
    for (const IniDocument::SettingLine& line : document.SettingLines(OtherShells())) {
        const int index = FindDirective(line.name);
        if (index >= 0 && isFromHere(index))
            aSettingSources.rows[static_cast<std::size_t>(index)] = {SettingOrigin::File, fileIndex,
                                                                     line.line};
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
    if (!ReadFileToReplace(file, bytes, largestIniFile))
        return MVError(0, file);
    SystemAnsi ansi;
    IniDocument document(bytes, ansi);
    ApplyAll(document, what, how);
    const std::string changed = document.Bytes();
    if (changed != bytes && !ReplaceWholeFile(file, changed))
        return MVError(0, file);
    NoteSources(document, file, what.directives);
    return result::success;
}
