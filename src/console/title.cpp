#include "console/title.h"

#include "engine/console_entry.h"
#include "engine/inifile.h"
#include "engine/state.h"
#include "platform/console.h"
#include "platform/environment.h"
#include "text/format.h"

namespace {

// The title that the console has now, where it has one, is taken for the standing one.
bool TakePresentTitle()
{
    if (!aTexts.standingTitle.empty())
        return false;
    aTexts.standingTitle = ConsoleTitle();
    return !aTexts.standingTitle.empty();
}

const CString& StandingTitle()
{
    TakePresentTitle();
    if (aTexts.standingTitle.empty())
        aTexts.standingTitle = aTexts.executable;
    return aTexts.standingTitle;
}

CString TitleWithCommand(std::u16string_view command)
{
    constexpr std::size_t longestCommand = 256;
    const std::u16string_view firstLine = command.substr(0, command.find(u'\n'));
    return Format(u"%s - %s", StandingTitle(), firstLine.substr(0, longestCommand));
}

} // namespace

bool SetStandingTitle(const CString& title)
{
    aTexts.standingTitle = title;
    return ChangeConsoleTitle(title);
}

void UpdateTitleAndIcon(std::u16string_view command)
{
    if (!HasConsole())
        return;
    // A loop or group typed at the prompt is named as a whole, not piece by piece.
    const TLS_VARIABLES& tls = Tls();
    if (tls.lineDepth > 1 && tls.batchIndex < 0)
        return;
    CString pattern;
    if (!command.empty()) {
        if (aIniFile.UpdateTitle)
            ChangeConsoleTitle(TitleWithCommand(command));
    } else if (ReadEnvironment(u"TITLEPROMPT", pattern)) {
        SetStandingTitle(ExpandPrompt(pattern));
    } else if (aIniFile.UpdateTitle && !TakePresentTitle()) {
        ChangeConsoleTitle(StandingTitle());
    }
}
