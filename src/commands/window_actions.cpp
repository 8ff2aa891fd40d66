#include "commands/window_actions.h"

#include "engine/results.h"
#include "lang/console_messages.h"
#include "platform/tray_icon.h"
#include "platform/window_changes.h"
#include "text/compare.h"
#include "text/numbers.h"
#include "text/words.h"

struct WindowActionRow {
    const char16_t* name;
    std::size_t fewest; // numbers behind "="
    std::size_t most;
    int lowest;
    int highest;
    bool (*perform)(HWND window, const std::vector<int>& numbers);
};

namespace {

using Numbers = std::vector<int>;

constexpr int farthest = 32767;

template <WindowShow how> bool Show(HWND window, const Numbers&) { return ShowWindowAs(window, how); }
template <WindowOrder order> bool Order(HWND window, const Numbers&) { return OrderWindow(window, order); }

bool Place(HWND window, const Numbers& numbers)
{
    std::optional<SIZE> size;
    if (numbers.size() == 4)
        size = SIZE{numbers[2], numbers[3]};
    return MoveWindowTo(window, POINT{numbers[0], numbers[1]}, size);
}

bool Resize(HWND window, const Numbers& numbers)
{
    return MoveWindowTo(window, std::nullopt, SIZE{numbers[0], numbers[1]});
}

bool MakeOpaque(HWND window, const Numbers& numbers)
{
    return SetWindowOpacity(window, static_cast<unsigned>(numbers[0]));
}

bool Flash(HWND window, const Numbers& numbers)
{
    return FlashWindow(window, numbers.empty() ? std::nullopt : std::optional<unsigned>(numbers[0]));
}

bool Close(HWND window, const Numbers&) { return AskToClose(window); }
bool PutAway(HWND window, const Numbers&) { return HideInTray(window); }

constexpr WindowActionRow rows[] = {
    {u"MIN", 0, 0, 0, 0, Show<WindowShow::Minimized>},
    {u"MAX", 0, 0, 0, 0, Show<WindowShow::Maximized>},
    {u"RESTORE", 0, 0, 0, 0, Show<WindowShow::Restored>},
    {u"HIDE", 0, 0, 0, 0, Show<WindowShow::Hidden>},
    {u"SHOW", 0, 0, 0, 0, Show<WindowShow::Shown>},
    {u"TOP", 0, 0, 0, 0, Order<WindowOrder::Top>},
    {u"BOTTOM", 0, 0, 0, 0, Order<WindowOrder::Bottom>},
    {u"TOPMOST", 0, 0, 0, 0, Order<WindowOrder::AlwaysOnTop>},
    {u"NOTOPMOST", 0, 0, 0, 0, Order<WindowOrder::NotAlwaysOnTop>},
    {u"TRAY", 0, 0, 0, 0, PutAway},
    {u"CLOSE", 0, 0, 0, 0, Close},
    {u"POS", 2, 4, -farthest, farthest, Place},
    {u"SIZE", 2, 2, 1, farthest, Resize},
    {u"TRANS", 1, 1, 0, 255, MakeOpaque},
    {u"FLASH", 0, 1, 1, 1000, Flash},
};

const WindowActionRow* FindAction(std::u16string_view name)
{
    for (const WindowActionRow& row : rows)
        if (EqualNoCase(row.name, name))
            return &row;
    return nullptr;
}

// Reads "10,20" behind the "=".
bool ReadNumbers(std::u16string_view text, const WindowActionRow& row, Numbers& numbers)
{
    while (!text.empty()) {
        const std::size_t comma = std::min(text.find(u','), text.size());
        const auto number = ParseInteger(text.substr(0, comma));
        if (!number || *number < row.lowest || *number > row.highest)
            return false;
        numbers.push_back(static_cast<int>(*number));
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return numbers.size() >= row.fewest && numbers.size() <= row.most && numbers.size() != 3;
}

} // namespace

int ReadWindowActions(std::u16string_view text, WindowActions& actions)
{
    for (Word word = NextBlankWord(text, 0); word.length > 0; word = NextBlankWord(text, word.end())) {
        const std::u16string_view one = text.substr(word.start, word.length);
        if (one.front() == u'"') {
            actions.title = WithoutOuterQuotes(one);
            continue;
        }
        const std::size_t equals = std::min(one.find(u'='), one.size());
        WindowAction action;
        action.row = FindAction(one.substr(0, equals));
        if (!action.row)
            return MVError(errors::unknownWindowAction, one);
        if (!ReadNumbers(one.substr(std::min(equals + 1, one.size())), *action.row, action.numbers))
            return MVError(errors::invalidNumber, one);
        actions.actions.push_back(std::move(action));
    }
    return result::success;
}

int PerformWindowActions(HWND window, const WindowActions& actions)
{
    if (actions.title && !SetWindowTitle(window, *actions.title))
        return MVError(0);
    for (const WindowAction& action : actions.actions)
        if (!action.row->perform(window, action.numbers))
            // The system does not say why an icon finds no place: there is no taskbar.
            return MVError(action.row->perform == PutAway ? errors::noDesktop : 0, action.row->name);
    return result::success;
}
