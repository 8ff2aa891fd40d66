// The lines of a SWITCH block: choosing a group, and passing over the others.
#pragma once

#include <string_view>

constexpr int fileEnded = 1; // before the block did

// Moves the frame behind the CASE or DEFAULT line that fits the value, or behind the end of the block. 0,
// fileEnded, or result::abandonBatch when the file cannot be opened.
int ChooseGroup(std::u16string_view value);

// From a CASE or DEFAULT line that was reached as a command to the end of the block, or to CASEALL.
int LeaveGroup();

// Passes over the lines up to the one that closes a block (ENDTEXT, ENDCOMMENT); `visit`, if given, gets each
// of them. False when the file ended first.
class CString;
bool ReadTextBlock(std::u16string_view closing, void (*visit)(const CString& line));
