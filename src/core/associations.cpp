#include "core/associations.h"

#include <algorithm>

#include "core/association_template.h"
#include "core/file_classes.h"
#include "platform/registry.h"
#include "text/format.h"
#include "text/path_names.h"

namespace {

// The command of a file class: that of its default verb, "open" when it names none.
bool ReadClass(const CString& className, Association& found)
{
    if (className.empty())
        return false;
    const CString shellKey = className + u"\\shell";
    CString verb = ReadRegistryText(RegistryRoot::ClassesRoot, shellKey).value_or(CString());
    verb.Truncate(std::min(verb.view().find(u','), verb.size())); // a list names the default verb first
    if (verb.empty())
        verb = u"open";
    const CString verbKey = Format(u"%s\\%s", shellKey, verb);
    const RegistryKey key(RegistryRoot::ClassesRoot, verbKey + u"\\command");
    const auto text = key.Text({});
    if (!text || text->empty())
        return false;
    found.commandTemplate = *text;
    found.program = ProgramOfTemplate(*text);
    found.needsShell = NeedsWindowsShell(*text) || key.Text(u"DelegateExecute") ||
                       RegistryKey(RegistryRoot::ClassesRoot, verbKey + u"\\ddeexec");
    return true;
}

} // namespace

bool MyFindExecutable(std::u16string_view fileName, Association& found)
{
    const CString extension(ExtensionPart(fileName));
    if (extension.size() < 2)
        return false;
    if (ReadClass(ChosenClass(extension), found))
        return true;
    const auto registered = ReadRegistryText(RegistryRoot::ClassesRoot, extension);
    return (registered && ReadClass(*registered, found)) || ReadClass(extension, found) ||
           ReadClass(CString(u"SystemFileAssociations\\") + extension, found);
}
