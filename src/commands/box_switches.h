// The switches that all commands with a box share, and the answer where nobody is there to give one.
#pragma once

#include <string_view>

#include "platform/message_boxes.h"

struct BoxSwitches {
    BoxManners manners;
    bool unattended = false; // shown even though standard input is no console
};

// /P:left,top  /S  /T:seconds  /U. False when `one` is none of them; a value that makes no sense counts as
// such.
bool TakeBoxSwitch(std::u16string_view one, BoxSwitches& switches);
// Whether a person may be asked.
bool MayShowBox(const BoxSwitches& switches);
// A title in double quotes in front of the text, which loses quotes of its own; the command's name when there
// is none, or nothing but it.
CString TakeBoxTitle(CString& text);
// A text that stood in double quotes: there the escape character is literal, but boxes need a way to begin a
// line (^n).
CString WithLineEnds(std::u16string_view quoted);
// "100,200"
std::optional<POINT> ReadPoint(std::u16string_view text);

#define BOX_SWITCHES                                                                                         \
    u"/P  where its left upper corner stands, in pixels of the screen; without it in the middle. All of it " \
    u"stays on the screen\n"                                                                                 \
    u"/S  stays in front of all other windows\n"                                                             \
    u"/T  goes away after so many seconds\n"                                                                 \
    u"/U  is shown even when standard input is no console; the question counts as unanswered otherwise\n"
