#include "commands/notices.h"

#include "commands/box_switches.h"
#include "config/colors.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/console_messages.h"
#include "platform/clock.h"
#include "platform/desktop_text.h"
#include "platform/file_facts.h"
#include "platform/tray_icon.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp notifyHelp = {
    u"Shows a notice that pops up beside the clock.",
    u"NOTIFY [/E | /I | /W] [/N] [/Q] [/T:seconds] [\"title\"] text",
    u"/E  the sign of an error; /I of information, /W of a warning\n"
    u"/N  do not wait until it has gone, even in a shell that ends\n"
    u"/Q  without a sound\n"
    u"/T  for so many seconds, 5 unless told; Windows may show it longer\n"
    u"The script goes on at once. A shell that was started with /C waits until its notices are gone, "
    u"because they go with it.",
    u"notify /i \"Backup\" All files are copied.",
};

const CommandHelp toastHelp = {
    u"Shows a notice beside the clock, waits, and tells what has become of it.",
    u"TOAST [/E | /I | /L:\"file.ico\" | /W] [/N] [/Q] [/T:seconds] [/U] [\"title\"] text",
    u"/E  the sign of an error; /I of information, /W of a warning\n"
    u"/L  the picture of this file\n"
    u"/N  do not wait\n"
    u"/Q  without a sound\n"
    u"/T  for so many seconds at most, 5 unless told\n"
    u"/U  waits even when standard input is no console\n"
    u"The result, which is also the error level, is 10 when it was clicked, 12 when it was closed or has "
    u"gone into the list of notices, 20 when its time is over, 0 with /N, 2 for a mistake in the command. "
    u"Where nobody is to be asked it is shown, too, and the result is 12.",
    u"toast /i \"Backup\" Finished. Click to see the log.\n"
    u"if %? == 10 start backup.log",
};

const CommandHelp osdHelp = {
    u"Writes a text on the desktop, in front of everything, for a time.",
    u"OSD [/A:place] [/B] [/C:color] [/F:\"font\"] [/I] [/N] [/P:left,top] [/S:points] [/T:seconds] text",
    u"/A  where: TOPLEFT, TOP, TOPRIGHT, LEFT, CENTER (the default), RIGHT, BOTTOMLEFT, BOTTOM, "
    u"BOTTOMRIGHT\n"
    u"/B  bold letters; /I slanted ones\n"
    u"/C  the color, by its name or as #RRGGBB; bright green unless told\n"
    u"/F  the name of the font\n"
    u"/N  do not wait until the text has gone; it goes with the shell, at the latest\n"
    u"/P  its left upper corner, in pixels of the screen\n"
    u"/S  the size of the letters, 24 unless told\n"
    u"/T  for so many seconds, 5 unless told; with a fraction, if need be\n"
    u"Clicks go through to what is behind it. ^n puts a line end into the text. Ctrl+C ends it.",
    u"osd Build finished\n"
    u"osd /a:bottomright /c:\"bright red\" /s:40 /t:2.5 /n Low on paper",
};

namespace {

bool StopsText() { return QueryBreak(); }

// NOTIFY

struct NoticeRequest {
    Notice notice;
    bool goesOn = false;
};

bool TakeNoticeSwitch(std::u16string_view one, NoticeRequest& request)
{
    const struct {
        const char16_t* name;
        NoticeIcon icon;
    } icons[] = {{u"E", NoticeIcon::Error}, {u"I", NoticeIcon::Information}, {u"W", NoticeIcon::Warning}};
    for (const auto& row : icons)
        if (EqualNoCase(row.name, one)) {
            request.notice.icon = row.icon;
            return true;
        }
    if (EqualNoCase(one, u"N"))
        return request.goesOn = true;
    if (EqualNoCase(one, u"Q"))
        return request.notice.quiet = true;
    const auto seconds = SwitchValue(one, u"T");
    const auto time = seconds ? ParseDuration(*seconds, 1000) : std::nullopt;
    if (time)
        request.notice.milliseconds = *time;
    return time.has_value();
}

constexpr int toastClicked = 10;
constexpr int toastClosed = 12;
constexpr int toastTimedOut = 20;

int AwaitToast(unsigned number)
{
    constexpr std::uint64_t step = 50;
    for (;;) {
        switch (QueryNotice(number)) {
        case NoticeEnd::Clicked: return toastClicked;
        case NoticeEnd::Closed: return toastClosed;
        case NoticeEnd::TimedOut: return toastTimedOut;
        case NoticeEnd::Shown: break;
        }
        SleepOrBreak(step);
    }
}

int TakeNoticeText(CString& arguments, NoticeRequest& request)
{
    request.notice.title = TakeBoxTitle(arguments);
    request.notice.text = arguments;
    return arguments.empty() ? UsageError() : result::success;
}

// OSD

struct ScreenNinth {
    const char16_t* name;
    int column;
    int row;
};
constexpr ScreenNinth ninths[] = {
    {u"TOPLEFT", 0, 0}, {u"TOP", 1, 0},        {u"TOPRIGHT", 2, 0}, {u"LEFT", 0, 1},        {u"CENTER", 1, 1},
    {u"RIGHT", 2, 1},   {u"BOTTOMLEFT", 0, 2}, {u"BOTTOM", 1, 2},   {u"BOTTOMRIGHT", 2, 2},
};

// The console's colours as they look.
constexpr COLORREF looks[nColors] = {
    RGB(0, 0, 0),       RGB(0, 0, 128),   RGB(0, 128, 0),   RGB(0, 128, 128),
    RGB(128, 0, 0),     RGB(128, 0, 128), RGB(128, 128, 0), RGB(192, 192, 192),
    RGB(128, 128, 128), RGB(0, 0, 255),   RGB(0, 255, 0),   RGB(0, 255, 255),
    RGB(255, 0, 0),     RGB(255, 0, 255), RGB(255, 255, 0), RGB(255, 255, 255),
};
constexpr unsigned brightGreen = 10;

std::optional<COLORREF> ReadLook(std::u16string_view text)
{
    std::size_t at = 0;
    if (const auto color = ReadColor(text, at); color && at == text.size())
        return looks[*color];
    if (text.size() != 7 || text[0] != u'#')
        return std::nullopt;
    const auto number = ParseInteger(CString(u"0x") + text.substr(1));
    if (!number)
        return std::nullopt;
    return RGB(*number >> 16 & 0xFF, *number >> 8 & 0xFF, *number & 0xFF);
}

struct OsdRequest {
    DesktopText shown;
    bool goesOn = false;
};

bool TakeLookSwitch(std::u16string_view one, DesktopText& shown)
{
    if (const auto place = SwitchValue(one, u"A")) {
        for (const ScreenNinth& ninth : ninths)
            if (EqualNoCase(ninth.name, *place)) {
                shown.column = ninth.column;
                shown.row = ninth.row;
                return true;
            }
        return false;
    }
    if (const auto color = SwitchValue(one, u"C")) {
        const auto look = ReadLook(*color);
        shown.color = look.value_or(0);
        return look.has_value();
    }
    if (const auto font = SwitchValue(one, u"F")) {
        shown.font = *font;
        return !font->empty();
    }
    const auto size = SwitchValue(one, u"S");
    const auto points = size ? ParseInteger(*size) : std::nullopt;
    constexpr std::int64_t largest = 500;
    if (!points || *points < 4 || *points > largest)
        return false;
    shown.points = static_cast<int>(*points);
    return true;
}

bool TakeOsdSwitch(std::u16string_view one, OsdRequest& request)
{
    DesktopText& shown = request.shown;
    if (EqualNoCase(one, u"B"))
        return shown.bold = true;
    if (EqualNoCase(one, u"I"))
        return shown.italic = true;
    if (EqualNoCase(one, u"N"))
        return request.goesOn = true;
    if (const auto place = SwitchValue(one, u"P"))
        return (shown.place = ReadPoint(*place)).has_value();
    if (const auto seconds = SwitchValue(one, u"T")) {
        const auto time = ParseDuration(*seconds, 1000);
        shown.milliseconds = time.value_or(0);
        return time.has_value();
    }
    return TakeLookSwitch(one, shown);
}

} // namespace

int Notify_Command(CString& arguments)
{
    NoticeRequest request;
    CString one;
    while (TakeLeadingSwitch(arguments, one))
        if (!TakeNoticeSwitch(one, request))
            return RefuseSwitch(one);
    if (const int code = TakeNoticeText(arguments, request))
        return code;
    if (ShowNotice(request.notice) == 0)
        return MVError(errors::noDesktop);
    if (aGlobals.transient && !request.goesOn)
        SleepOrBreak(request.notice.milliseconds);
    return result::success;
}

int Toast_Command(CString& arguments)
{
    NoticeRequest request;
    BoxSwitches switches;
    CString one;
    while (TakeLeadingSwitch(arguments, one)) {
        const auto picture = SwitchValue(one, u"L");
        if (picture && !picture->empty())
            request.notice.picture = FullPathName(*picture);
        else if (EqualNoCase(one, u"U"))
            switches.unattended = true;
        else if (!TakeNoticeSwitch(one, request))
            return RefuseSwitch(one);
    }
    if (const int code = TakeNoticeText(arguments, request))
        return code;
    const CString& picture = request.notice.picture;
    if (!picture.empty() && !QueryIsFile(picture))
        return MVError(ERROR_FILE_NOT_FOUND, picture);
    const unsigned number = ShowNotice(request.notice);
    if (number == 0)
        return MVError(errors::noDesktop);
    if (request.goesOn)
        return result::success;
    return MayShowBox(switches) ? AwaitToast(number) : toastClosed;
}

int Osd_Command(CString& arguments)
{
    OsdRequest request;
    request.shown.color = looks[brightGreen];
    CString one;
    while (TakeLeadingSwitch(arguments, one))
        if (!TakeOsdSwitch(one, request))
            return RefuseSwitch(one);
    request.shown.text = WithoutOuterQuotes(arguments.TrimRight());
    if (arguments.front() == u'"')
        request.shown.text = WithLineEnds(request.shown.text);
    if (request.shown.text.empty())
        return UsageError();
    const bool done =
        request.goesOn ? ShowDesktopTextAside(request.shown) : ShowDesktopText(request.shown, StopsText);
    ThrowIfBroken();
    return done ? result::success : MVError(errors::noDesktop);
}
