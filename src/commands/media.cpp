#include "commands/media.h"

#include "commands/box_switches.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/output.h"
#include "engine/results.h"
#include "engine/state.h"
#include "lang/console_messages.h"
#include "platform/file_facts.h"
#include "platform/media.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

const CommandHelp playsoundHelp = {
    u"Plays a sound.",
    u"PLAYSOUND [/A] [/R:times] [/V:percent] file\n"
    u"PLAYSOUND [/A] sound\n"
    u"PLAYSOUND /S",
    u"/A  do not wait for its end; it ends with the shell, at the latest\n"
    u"/R  plays it so many times; with /A only 0, again and again\n"
    u"/S  stops what is playing\n"
    u"/V  how loud, 0 to 100\n"
    u"A file may be of any kind that Windows can play: wav, mp3, wma, mid and so on. A sound is one of "
    u"those that the user has chosen for events, such as SystemExclamation or SystemStart. Ctrl+C ends it.",
    u"playsound chimes.wav\n"
    u"playsound /a /r:0 rain.mp3\n"
    u"playsound SystemHand",
};

const CommandHelp playaviHelp = {
    u"Plays a film.",
    u"PLAYAVI [/F] [/P:left,top] [/R:times] [/V:percent] [/Z:width,height] file",
    u"/F  over the whole screen\n"
    u"/P  where the window stands, in pixels of the screen\n"
    u"/R  plays it so many times\n"
    u"/V  how loud, 0 to 100\n"
    u"/Z  the size of the picture\n"
    u"A file may be of any kind that Windows can play: avi, mpg, wmv and so on. The script goes on when the "
    u"film has ended or its window has been closed. Ctrl+C ends it.",
    u"playavi holidays.avi\n"
    u"playavi /p:0,0 /z:640,480 talk.mpg",
};

namespace {

constexpr std::u16string_view soundName = u"movasound"; // under which the system keeps them
constexpr std::u16string_view filmName = u"movafilm";

struct MediaRequest {
    bool aside = false;
    bool stop = false;
    bool wholeScreen = false;
    std::int64_t times = 1;
    std::optional<std::int64_t> loudness; // percent
    std::optional<POINT> place;
    std::optional<POINT> size;
    CString file;
};

// Something that plays; closed when it goes, unless it is left playing.
class Medium {
public:
    explicit Medium(std::u16string_view systemName) : name(systemName) {}
    ~Medium()
    {
        if (open)
            Send(u"close %s");
    }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;

    bool Open(std::u16string_view file)
    {
        Send(u"close %s"); // one that was left playing
        failure.Clear();
        return open = Do(Format(u"open \"%s\" alias %s", file, name)) ||
                      Do(Format(u"open \"%s\" type mpegvideo alias %s", file, name));
    }
    // A command with "%s" in the place of the name.
    template <typename... Arguments> bool Send(std::u16string_view pattern, const Arguments&... arguments)
    {
        return Do(Format(pattern, name, arguments...));
    }
    bool IsPlaying() { return Send(u"status %s mode") && EqualNoCase(answer, u"playing"); }
    void Leave() { open = false; }
    int Report(std::u16string_view file) const
    {
        const int code = MVError(errors::cannotPlay, file);
        if (!failure.empty())
            PrintError(failure + u"\r\n");
        return code;
    }
    const CString& Answer() const { return answer; }

private:
    bool Do(const CString& command) { return MediaCommand(command, answer, failure); }

    std::u16string_view name;
    bool open = false;
    CString answer;
    CString failure;
};

std::optional<std::int64_t> NumberWithin(std::u16string_view text, std::int64_t highest)
{
    const auto number = ParseInteger(text);
    return number && *number >= 0 && *number <= highest ? number : std::nullopt;
}

bool TakeSwitch(std::u16string_view one, MediaRequest& request, bool film)
{
    constexpr std::int64_t mostTimes = 1000000;
    if (!film && EqualNoCase(one, u"A"))
        return request.aside = true;
    if (!film && EqualNoCase(one, u"S"))
        return request.stop = true;
    if (film && EqualNoCase(one, u"F"))
        return request.wholeScreen = true;
    if (const auto times = SwitchValue(one, u"R")) {
        const auto number = NumberWithin(*times, mostTimes);
        request.times = number.value_or(1);
        return number.has_value();
    }
    if (const auto loudness = SwitchValue(one, u"V"))
        return (request.loudness = NumberWithin(*loudness, 100)).has_value();
    if (const auto place = film ? SwitchValue(one, u"P") : std::nullopt)
        return (request.place = ReadPoint(*place)).has_value();
    const auto size = film ? SwitchValue(one, u"Z") : std::nullopt;
    return size && (request.size = ReadPoint(*size)).has_value();
}

int ReadRequest(CString& arguments, MediaRequest& request, bool film)
{
    CString one;
    while (TakeLeadingSwitch(arguments, one))
        if (!TakeSwitch(one, request, film))
            return RefuseSwitch(one);
    request.file = WithoutOuterQuotes(arguments.TrimRight());
    const bool countable = request.aside ? request.times <= 1 : request.times >= 1;
    return request.file.empty() == request.stop && countable ? result::success : UsageError();
}

void AwaitEnd(Medium& medium)
{
    constexpr std::uint64_t step = 50;
    while (medium.IsPlaying()) {
        RunWindowMessages();
        SleepOrBreak(step);
    }
}

void SetLoudness(Medium& medium, const MediaRequest& request)
{
    constexpr std::int64_t full = 1000;
    if (request.loudness)
        medium.Send(u"setaudio %s volume to %d", *request.loudness * full / 100);
}

bool PlayAll(Medium& medium, const MediaRequest& request, std::u16string_view how)
{
    for (std::int64_t i = 0; i < request.times; ++i) {
        if (!medium.Send(u"play %s from 0%s", how))
            return false;
        AwaitEnd(medium);
    }
    return true;
}

// The part of "left top right bottom" behind two numbers is the size.
void PlacePicture(Medium& medium, const MediaRequest& request)
{
    if (!request.place && !request.size)
        return;
    POINT size = request.size.value_or(POINT{});
    if (!request.size && medium.Send(u"where %s source")) {
        const CString place = medium.Answer();
        size.x = static_cast<LONG>(ParseInteger(GetNthArgument(place, 2, CurrentSyntax())).value_or(320));
        size.y = static_cast<LONG>(ParseInteger(GetNthArgument(place, 3, CurrentSyntax())).value_or(240));
    }
    const POINT at = request.place.value_or(POINT{});
    medium.Send(u"put %s window at %d %d %d %d", at.x, at.y, size.x, size.y);
}

} // namespace

int Playsound_Command(CString& arguments)
{
    MediaRequest request;
    if (const int code = ReadRequest(arguments, request, false))
        return code;
    Medium sound(soundName);
    if (request.stop) {
        sound.Send(u"close %s");
        return result::success;
    }
    const bool isFile = QueryIsFile(request.file);
    if (!isFile && request.file.view().find_first_of(u".\\:") != CString::npos)
        return MVError(ERROR_FILE_NOT_FOUND, request.file);
    if (!isFile)
        return PlayNamedSound(request.file, !request.aside) ? result::success
                                                            : MVError(errors::cannotPlay, request.file);
    const CString file = FullPathName(request.file);
    if (!sound.Open(file))
        return sound.Report(file);
    SetLoudness(sound, request);
    const bool again = request.times == 0;
    if (request.aside) {
        if (!sound.Send(again ? u"play %s repeat" : u"play %s"))
            return sound.Report(file);
        sound.Leave();
        return result::success;
    }
    return PlayAll(sound, request, u"") ? result::success : sound.Report(file);
}

int Playavi_Command(CString& arguments)
{
    MediaRequest request;
    if (const int code = ReadRequest(arguments, request, true))
        return code;
    if (!QueryIsFile(request.file))
        return MVError(ERROR_FILE_NOT_FOUND, request.file);
    const CString file = FullPathName(request.file);
    Medium film(filmName);
    if (!film.Open(file))
        return film.Report(file);
    SetLoudness(film, request);
    PlacePicture(film, request);
    if (!request.wholeScreen)
        film.Send(u"window %s state show");
    return PlayAll(film, request, request.wholeScreen ? u" fullscreen" : u"") ? result::success
                                                                              : film.Report(file);
}
