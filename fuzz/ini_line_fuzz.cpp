// INI files of any bytes, with includes of themselves and of their own second half: reading must end, and
// whatever is accepted must be a value that the setting may hold and that a child shell can take over.
#include <array>
#include <cstdint>
#include <cstdlib>

#include "config/colors.h"
#include "config/settings_area.h"
#include "tests/unit/config_fake_world.h"

namespace {

bool MayHold(const Directive& directive, INIFILE& ini, FakeWorld& world)
{
    CString value;
    if (!FormatValue(directive, ini, value))
        return directive.Type() == DirectiveType::Include;
    switch (directive.Type()) {
    case DirectiveType::Signed:
    case DirectiveType::Unsigned:
    case DirectiveType::Choice: return ApplyValue(directive, value, ini, world) == 0;
    case DirectiveType::Color: {
        const unsigned attribute = ini.*directive.field.count;
        return attribute == 0 || ApplyValue(directive, ColorText(attribute), ini, world) == 0;
    }
    case DirectiveType::Character: return ini.*directive.field.character != 0;
    default: return true;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1)
        return 0;
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    Shell shell;
    shell.world.files = {{u"C:\\a.ini", bytes}, {u"C:\\b.ini", bytes.substr(bytes.size() / 2)}};
    shell.world.directories = {u"C:\\tree"};
    shell.world.answers = {IniAnswer::No, IniAnswer::Yes, IniAnswer::Cancel};
    shell.Parse(u"C:\\a.ini", data[0] * 16u);
    CString line = DecodeIniText(bytes, shell.world);
    IniLine(line, &shell.ini, data[0] & 3, 1, shell.error, shell.reader);

    for (const Directive& directive : aDirectives)
        if (!MayHold(directive, shell.ini, shell.world))
            std::abort();
    if (shell.reader.depth != 0 || shell.world.filesRead > mostIniFiles)
        std::abort();
    std::array<std::byte, settingsAreaBytes> area;
    WriteSettingsArea(shell.ini, u"C:\\a.ini", area);
    Shell child;
    CString iniFile;
    if (!ReadSettingsArea(area, child.ini, iniFile) || child.ini.HistDups != shell.ini.HistDups)
        std::abort();
    return 0;
}
