#include "engine/logs.h"

#include <windows.h>

#include "engine/data_folder.h"
#include "engine/inifile.h"
#include "engine/results.h"
#include "engine/state.h"
#include "platform/append_file.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file_facts.h"
#include "text/encoding.h"
#include "text/format.h"
#include "text/words.h"

struct LogFile {
    CString setting; // that `name` was made from
    CString name;
    AppendFile file;
};

struct LogFiles {
    LogFile rows[static_cast<int>(Log::Count)];
};

namespace {

struct LogSettings {
    SettingChoice INIFILE::*on;
    SettingText INIFILE::*name;
    const char16_t* usualName;
};

// In the order of Log.
constexpr LogSettings logSettings[] = {
    {&INIFILE::LogOn, &INIFILE::LogName, u"MovaCommands.log"},
    {&INIFILE::HistLogOn, &INIFILE::HistLogName, u"MovaHistory.log"},
    {&INIFILE::LogErrors, &INIFILE::LogErrorsName, u"MovaErrors.log"},
    {&INIFILE::LogAll, &INIFILE::LogAllName, u"MovaOutput.log"},
};
static_assert(std::size(logSettings) == static_cast<std::size_t>(Log::Count));

const LogSettings& SettingsOf(Log log) { return logSettings[static_cast<int>(log)]; }

// A relative name is taken from the directory that is current when the log is first used.
LogFile& FileOf(Log log)
{
    if (!aRooms.logs)
        aRooms.logs = std::make_shared<LogFiles>();
    LogFile& row = aRooms.logs->rows[static_cast<int>(log)];
    const CString setting(aIniFile.*SettingsOf(log).name);
    if (!row.name.empty() && row.setting == setting)
        return row;
    const CString named = WithoutQuotes(setting);
    row.setting = setting;
    row.file.Close();
    row.name =
        named.empty() ? Format(u"%s\\%s", DataFolder(), SettingsOf(log).usualName) : FullPathName(named);
    return row;
}

bool Append(Log log, std::u16string_view text)
{
    LogFile& row = FileOf(log);
    const bool written = (row.file.IsOpen() || row.file.Open(row.name)) && row.file.Append(ToUtf8(text));
    const DWORD code = GetLastError();
    // Opening costs more than writing, which tells where output comes in many small pieces. Elsewhere a log
    // that is not held open can be moved or deleted at any time.
    if (!written || log != Log::Everything)
        row.file.Close();
    if (written)
        return true;
    aIniFile.*SettingsOf(log).on = 0;
    MVError(code, row.name);
    return false;
}

CString Stamped(std::u16string_view text)
{
    const ClockTime now = LocalTime();
    return Format(u"[%04d-%02d-%02d %02d:%02d:%02d] %s\r\n", now.year, now.month, now.day, now.hour,
                  now.minute, now.second, text);
}

} // namespace

bool IsLogOn(Log log) { return aIniFile.*SettingsOf(log).on != 0; }

CString LogFileName(Log log) { return FileOf(log).name; }

bool OpenLog(Log log) { return Append(log, {}); }

bool WriteLogLine(Log log, std::u16string_view text)
{
    if (!IsLogOn(log))
        return true;
    return Append(log, log == Log::TypedLines ? Format(u"%s\r\n", text) : Stamped(text));
}

void LogCommand(std::u16string_view command)
{
    WriteLogLine(Log::Commands, command);
    WriteLogLine(Log::Everything, command);
}

void LogOutput(std::u16string_view text) { Append(Log::Everything, text); }

void CloseLogs() { aRooms.logs.reset(); }
