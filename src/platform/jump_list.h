// The list that the taskbar shows for this program: tasks, and files opened lately.
//
// The system takes tasks as a whole and never tells them again: who changes them keeps them elsewhere.
// Changes answer 0 or a Windows error number.
#pragma once

#include <string_view>
#include <vector>

#include "text/cstring.h"

struct JumpTask {
    CString title;
    CString program; // full name
    CString arguments;
    CString directory; // "" for the program's own choice
    CString icon;      // the file that holds it, "" for the program
};

// In the place of all that were there; none takes the list away.
unsigned SetJumpTasks(const std::vector<JumpTask>& tasks);

void AddRecentFile(std::u16string_view name);
// The latest first.
std::vector<CString> RecentFiles();
unsigned ForgetRecentFiles();
