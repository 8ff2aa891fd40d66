#include "commands/boxes.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <windows.h>

#include <commctrl.h>

#include "commands/box_switches.h"
#include "commands/prompted_variable.h"
#include "core/command_switches.h"
#include "engine/break.h"
#include "engine/results.h"
#include "engine/state.h"
#include "expand/lists.h"
#include "lang/console_messages.h"
#include "platform/environment.h"
#include "text/compare.h"
#include "text/format.h"
#include "text/numbers.h"
#include "text/words.h"

#define BUTTON_RESULTS                                                                                       \
    u"10 OK or Yes, 11 No, 12 Cancel or Close, 13 Retry, 14 Try Again, 15 Continue, 16 Ignore, 17 Abort, "   \
    u"20 when the time is over"

const CommandHelp msgboxHelp = {
    u"Shows a message in a box and tells which button was pressed.",
    u"MSGBOX [/D:number] [/E | /I | /Q | /W] [/P:left,top] [/R] [/S] [/T:seconds] [/U] buttons [\"title\"] "
    u"text",
    u"/D  the button that Enter presses, from 1\n"
    u"/E  the sign of an error; /I of information, /Q of a question, /W of a warning\n" //
    BOX_SWITCHES                                                                        //
    u"/R  the text is written from right to left\n"
    u"Buttons are OK, OKCANCEL, YESNO, YESNOCANCEL, RETRYCANCEL, ABORTRETRYIGNORE and CANCELTRYCONTINUE. "
    u"The result, which is also the error level, is " //
    BUTTON_RESULTS                                    //
    u", 2 for a mistake in the command. Where nobody is to be asked it is No, else Cancel, else Abort, else "
    u"OK. ^n puts a line end into the text.",
    u"msgbox /q yesno \"Cleaning up\" Delete the old logs?\n"
    u"if %? == 10 del *.log\n"
    u"msgbox /t:5 /i ok Done.",
};

const CommandHelp queryboxHelp = {
    u"Asks for a line of text in a box and puts it into a variable.",
    u"QUERYBOX [/D] [/E] [/H] [/L:number] [/P:left,top] [/S] [/T:seconds] [/U] [\"title\"] prompt %%variable",
    u"/D  takes digits only\n"
    u"/E  the line begins with the variable's present value\n"
    u"/H  shows stars in place of what is typed\n"
    u"/L  takes so many characters at most\n" //
    BOX_SWITCHES                              //
    u"An empty line removes the variable. The result, which is also the error level, is 0; 1 when the box "
    u"was cancelled, its time ran out or nobody is to be asked, and the variable is then left as it was; 2 "
    u"for a mistake in the command.",
    u"querybox \"New project\" Its name: %%name\n"
    u"querybox /h /t:30 Password: %%secret",
};

const CommandHelp taskdialogHelp = {
    u"Shows a box with an instruction, a text, buttons and choices, and tells which button was pressed.",
    u"TASKDIALOG [/B:\"text\" ...] [/C:buttons] [/D:number] [/E | /I | /W | /X] [/F:\"text\"] [/K] "
    u"[/M:\"text\"] [/O:\"text\" ...] [/P:left,top] [/S] [/T:seconds] [/U] [/V:\"text\" | /Y:\"text\"] "
    u"[/Z:\"text\"] [\"title\"] text",
    u"/B  an own button; may be repeated\n"
    u"/C  common buttons, parted by \"+\": OK, YES, NO, CANCEL, RETRY, CLOSE; OK alone unless told\n"
    u"/D  the own button that Enter presses, from 1\n"
    u"/E  the sign of an error; /I of information, /W of a warning, /X of a shield\n"
    u"/F  a text at the foot\n"
    u"/K  own buttons are large, with room for a second line behind ^n\n"
    u"/M  the instruction above the text\n"
    u"/O  a choice of which one is made; may be repeated\n" //
    BOX_SWITCHES                                            //
    u"/V  the text of a check box; with /Y it is checked at first\n"
    u"/Z  a text that a click unfolds\n"
    u"^n puts line ends into the texts. "
    u"The result, which is also the error level, is 100 for the first own button, 101 for the second and so "
    u"on, or else " //
    BUTTON_RESULTS  //
    u", 2 for a mistake in the command. Where nobody is to be asked it is 12. The variables "
    u"TASKDIALOG_CHOICE (from 1) and TASKDIALOG_CHECKED (1 or 0) are set when there is such a choice or "
    u"check box.",
    u"taskdialog /w /m:\"Restart now?\" /c:yes+no \"Update\" Programs are going to be closed.\n"
    u"taskdialog /k /b:\"Keep both\" /b:\"Replace\" /c:cancel \"Copy\" The file exists already.",
};

namespace {

constexpr int answerTimedOut = 20;
constexpr int answerCancel = 12;
constexpr int notGiven = 1; // of QUERYBOX

struct ButtonResult {
    int button;
    int result;
};
constexpr ButtonResult buttonResults[] = {
    {IDOK, 10},    {IDYES, 10},      {IDNO, 11},       {IDCANCEL, answerCancel}, {IDCLOSE, answerCancel},
    {IDRETRY, 13}, {IDTRYAGAIN, 14}, {IDCONTINUE, 15}, {IDIGNORE, 16},           {IDABORT, 17},
};

int ResultOf(int button)
{
    if (button >= firstOwnButton)
        return button;
    for (const ButtonResult& row : buttonResults)
        if (row.button == button)
            return row.result;
    return result::error;
}

// What became of a box, as a result.
int ResultOfBox(int answer)
{
    ThrowIfBroken();
    if (answer == box_answer::timedOut)
        return answerTimedOut;
    return answer == box_answer::notShown ? MVError(errors::noDesktop) : ResultOf(answer);
}

bool StopsBox() { return QueryBreak(); }

struct ButtonSet {
    const char16_t* name;
    unsigned style;
    int buttons;
    int unattended; // the answer that changes least
};
constexpr ButtonSet buttonSets[] = {
    {u"OK", MB_OK, 1, 10},
    {u"OKCANCEL", MB_OKCANCEL, 2, answerCancel},
    {u"YESNO", MB_YESNO, 2, 11},
    {u"YESNOCANCEL", MB_YESNOCANCEL, 3, 11},
    {u"RETRYCANCEL", MB_RETRYCANCEL, 2, answerCancel},
    {u"ABORTRETRYIGNORE", MB_ABORTRETRYIGNORE, 3, 17},
    {u"CANCELTRYCONTINUE", MB_CANCELTRYCONTINUE, 3, answerCancel},
};

const ButtonSet* FindButtonSet(std::u16string_view name)
{
    for (const ButtonSet& set : buttonSets)
        if (EqualNoCase(set.name, name))
            return &set;
    return nullptr;
}

struct StyleSwitch {
    const char16_t* name;
    unsigned style;
};
constexpr StyleSwitch styleSwitches[] = {
    {u"E", MB_ICONERROR},    {u"I", MB_ICONINFORMATION},       {u"Q", MB_ICONQUESTION},
    {u"W", MB_ICONWARNING},  {u"R", MB_RIGHT | MB_RTLREADING}, {u"D1", MB_DEFBUTTON1},
    {u"D2", MB_DEFBUTTON2},  {u"D3", MB_DEFBUTTON3},           {u"D:1", MB_DEFBUTTON1},
    {u"D:2", MB_DEFBUTTON2}, {u"D:3", MB_DEFBUTTON3},
};

bool TakeStyleSwitch(std::u16string_view one, unsigned& style)
{
    for (const StyleSwitch& row : styleSwitches)
        if (EqualNoCase(row.name, one)) {
            style |= row.style;
            return true;
        }
    return false;
}

// QUERYBOX

struct QueryRequest {
    BoxSwitches switches;
    TextBox box;
    bool edits = false;
};

bool TakeQuerySwitch(std::u16string_view one, QueryRequest& request)
{
    if (EqualNoCase(one, u"D"))
        return request.box.digits = true;
    if (EqualNoCase(one, u"E"))
        return request.edits = true;
    if (EqualNoCase(one, u"H"))
        return request.box.hidden = true;
    if (const auto length = SwitchValue(one, u"L")) {
        const auto number = ParseInteger(*length);
        if (!number || *number < 1 || *number > static_cast<std::int64_t>(request.box.longest))
            return false;
        request.box.longest = static_cast<std::size_t>(*number);
        return true;
    }
    return TakeBoxSwitch(one, request.switches);
}

// TASKDIALOG

struct CommonButton {
    const char16_t* name;
    unsigned bit;
};
constexpr CommonButton commonButtons[] = {
    {u"OK", TDCBF_OK_BUTTON},         {u"YES", TDCBF_YES_BUTTON},     {u"NO", TDCBF_NO_BUTTON},
    {u"CANCEL", TDCBF_CANCEL_BUTTON}, {u"RETRY", TDCBF_RETRY_BUTTON}, {u"CLOSE", TDCBF_CLOSE_BUTTON},
};

bool TakeCommonButtons(std::u16string_view list, unsigned& bits)
{
    while (!list.empty()) {
        const std::size_t plus = std::min(list.find(u'+'), list.size());
        const std::u16string_view name = list.substr(0, plus);
        const auto* found =
            std::find_if(std::begin(commonButtons), std::end(commonButtons),
                         [&](const CommonButton& row) { return EqualNoCase(row.name, name); });
        if (found == std::end(commonButtons))
            return false;
        bits |= found->bit;
        list.remove_prefix(std::min(plus + 1, list.size()));
    }
    return bits != 0;
}

struct TaskRequest {
    BoxSwitches switches;
    TaskBox box;
};

bool TakeTaskText(std::u16string_view one, TaskBox& box)
{
    struct TextSwitch {
        const char16_t* name;
        CString* text;
    };
    const TextSwitch texts[] = {{u"F", &box.footer},
                                {u"M", &box.instruction},
                                {u"V", &box.check},
                                {u"Y", &box.check},
                                {u"Z", &box.more}};
    for (const TextSwitch& row : texts)
        if (const auto value = SwitchValue(one, row.name)) {
            *row.text = WithLineEnds(*value);
            box.checked |= UpperCase(one.front()) == u'Y';
            return !value->empty();
        }
    struct ListSwitch {
        const char16_t* name;
        std::vector<CString>* list;
    };
    const ListSwitch lists[] = {{u"B", &box.buttons}, {u"O", &box.choices}};
    for (const ListSwitch& row : lists)
        if (const auto value = SwitchValue(one, row.name)) {
            row.list->push_back(WithLineEnds(*value));
            return !value->empty();
        }
    return false;
}

bool TakeTaskSwitch(std::u16string_view one, TaskRequest& request)
{
    const struct {
        const char16_t* name;
        const wchar_t* icon;
    } icons[] = {
        {u"E", TD_ERROR_ICON}, {u"I", TD_INFORMATION_ICON}, {u"W", TD_WARNING_ICON}, {u"X", TD_SHIELD_ICON}};
    for (const auto& row : icons)
        if (EqualNoCase(row.name, one)) {
            request.box.icon = row.icon;
            return true;
        }
    if (EqualNoCase(one, u"K"))
        return request.box.links = true;
    if (const auto list = SwitchValue(one, u"C"))
        return TakeCommonButtons(*list, request.box.commonButtons);
    if (const auto number = SwitchValue(one, u"D")) {
        const auto button = ParseInteger(*number);
        request.box.defaultButton = firstOwnButton - 1 + static_cast<int>(button.value_or(0));
        return button && *button >= 1 && *button <= 100;
    }
    return TakeTaskText(one, request.box) || TakeBoxSwitch(one, request.switches);
}

void SetNumber(std::u16string_view name, int number) { SetEVariable(Format(u"%s=%d", name, number)); }

} // namespace

int Msgbox_Command(CString& arguments)
{
    BoxSwitches switches;
    unsigned style = MB_SETFOREGROUND;
    CString one;
    while (TakeLeadingSwitch(arguments, one))
        if (!TakeStyleSwitch(one, style) && !TakeBoxSwitch(one, switches))
            return RefuseSwitch(one);
    const Word word = NextBlankWord(arguments, 0);
    const ButtonSet* set = FindButtonSet(arguments.view().substr(word.start, word.length));
    if (!set)
        return word.length == 0 ? UsageError()
                                : MVError(errors::unknownButtons, arguments.view().substr(0, word.end()));
    const int defaultButton = static_cast<int>((style & MB_DEFMASK) / MB_DEFBUTTON2) + 1;
    if (defaultButton > set->buttons)
        return RefuseSwitch(Format(u"D:%d", defaultButton));
    arguments.Erase(0, word.end());
    const CString title = TakeBoxTitle(arguments);
    if (arguments.empty())
        return UsageError();
    if (!MayShowBox(switches))
        return set->unattended;
    switches.manners.stop = StopsBox;
    return ResultOfBox(ShowMessageBox(title, arguments, style | set->style, switches.manners));
}

int Querybox_Command(CString& arguments)
{
    QueryRequest request;
    CString one;
    while (TakeLeadingSwitch(arguments, one))
        if (!TakeQuerySwitch(one, request))
            return RefuseSwitch(one);
    CString variable;
    request.box.title = TakeBoxTitle(arguments);
    const bool quoted = arguments.front() == u'"';
    if (const int code = TakePromptAndVariable(arguments, request.box.prompt, variable))
        return code;
    if (quoted)
        request.box.prompt = WithLineEnds(request.box.prompt);
    if (request.box.prompt.empty()) // a single text in quotes is what is asked
        request.box.prompt = WithLineEnds(std::exchange(request.box.title, Tls().commandName));
    if (!MayShowBox(request.switches))
        return notGiven;
    if (request.edits)
        ReadEnvironment(variable, request.box.text);
    request.box.okText = LoadMessage(message::okButton);
    request.box.cancelText = LoadMessage(message::cancelButton);
    request.switches.manners.stop = StopsBox;
    const int answer = ShowTextBox(request.box, request.switches.manners);
    ThrowIfBroken();
    if (answer == box_answer::notShown)
        return MVError(errors::noDesktop);
    if (answer != IDOK)
        return notGiven;
    return SetEVariable(variable + u"=" + request.box.text) == 0 ? result::success : result::error;
}

int Taskdialog_Command(CString& arguments)
{
    TaskRequest request;
    CString one;
    while (TakeLeadingSwitch(arguments, one))
        if (!TakeTaskSwitch(one, request))
            return RefuseSwitch(one);
    TaskBox& box = request.box;
    const int ownButtons = static_cast<int>(box.buttons.size());
    if (box.defaultButton >= firstOwnButton + ownButtons)
        return RefuseSwitch(Format(u"D:%d", box.defaultButton - firstOwnButton + 1));
    box.title = TakeBoxTitle(arguments);
    box.text = arguments;
    if (box.text.empty() && box.instruction.empty())
        return UsageError();
    if (!MayShowBox(request.switches))
        return answerCancel;
    request.switches.manners.stop = StopsBox;
    const int answer = ShowTaskBox(box, request.switches.manners);
    if (answer > 0 && !box.choices.empty())
        SetNumber(u"TASKDIALOG_CHOICE", box.chosen);
    if (answer > 0 && !box.check.empty())
        SetNumber(u"TASKDIALOG_CHECKED", box.checked ? 1 : 0);
    return ResultOfBox(answer);
}
