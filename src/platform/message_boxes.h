// Boxes that tell or ask a person something and wait for an answer, for a time at most.
//
// They stand in front of other windows and have no owner: the window of the console belongs to another
// process. `stop` is asked about every tenth of a second and ends the box early.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <windows.h>

#include "text/cstring.h"

struct BoxManners {
    std::optional<POINT> place;                // of the left upper corner on the virtual screen
    std::optional<std::uint64_t> milliseconds; // without it the box waits for ever
    bool (*stop)() = nullptr;
    bool topmost = false;
};

namespace box_answer {
constexpr int notShown = 0;
constexpr int timedOut = -1;
constexpr int stopped = -2;
} // namespace box_answer

// `style` holds MB_... bits. Answers ID... of the button or one of box_answer.
int ShowMessageBox(const CString& title, const CString& text, unsigned style, const BoxManners& manners);

struct TextBox {
    CString title;
    CString prompt;
    CString text; // what stands in the box at first, and in the end
    std::size_t longest = 32767;
    bool hidden = false; // shows stars
    bool digits = false;
    CString okText;
    CString cancelText;
};
// IDOK, IDCANCEL or one of box_answer.
int ShowTextBox(TextBox& box, const BoxManners& manners);

struct TaskBox {
    CString title;
    CString instruction;
    CString text;
    CString more; // behind a button that unfolds it
    CString footer;
    CString check;                // the text of a check box
    std::vector<CString> buttons; // own ones
    std::vector<CString> choices; // radio buttons
    unsigned commonButtons = 0;   // TDCBF_...
    const wchar_t* icon = nullptr;
    int defaultButton = 0; // an ID
    bool links = false;    // own buttons are large
    bool checked = false;  // the check box, at first and in the end
    int chosen = 0;        // the radio button, from 1, in the end
};
constexpr int firstOwnButton = 100;
// ID... of a common button, firstOwnButton and up for own ones, or one of box_answer.
int ShowTaskBox(TaskBox& box, const BoxManners& manners);
