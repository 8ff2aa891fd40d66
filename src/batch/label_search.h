// Looking for a label in the current batch file, for GOTO, GOSUB, CALL and the condition ISLABEL.
#pragma once

#include <string_view>

enum class LabelSearch {
    Silent,    // a missing label is answered, not reported
    Report,    // a missing label is an error
    Subroutine // the same, and the label is recorded and its parameters bound
};

constexpr int noLabelGiven = 1;

// Searches from the current line to the end of the file, then from its top. 0 with the frame standing on the
// line behind the label; the label EOF stands for the end of the file when there is none of that name. Else
// noLabelGiven, result::error (a missing label), or result::abandonBatch when the file cannot be opened.
int FindLabel(std::u16string_view arguments, LabelSearch mode);

// Removes the parameter variables of a frame's innermost subroutine and forgets their names.
void RemoveParameters(int frameIndex);

// The name of the environment variable that holds a parameter of a frame's innermost subroutine.
class CString;
CString ParameterVariable(int frameIndex, std::u16string_view parameter);
