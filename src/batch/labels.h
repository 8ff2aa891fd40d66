// Reading label lines and the names that GOTO, GOSUB and CALL ask for. Pure; the search through the batch
// file stands in label_search.h.
#pragma once

#include <string_view>

#include "text/syntax.h"

struct LabelLine {
    std::u16string_view label;
    std::u16string_view parameters; // what stands in the square brackets behind it, for GOSUB
};

// Whether the line is a label line ("::" begins a comment). With `hashLabels` "#:" begins one too.
bool ReadLabelLine(std::u16string_view line, bool hashLabels, const Syntax& syntax, LabelLine& label);

// The label that a command asks for: its first argument without "@", ":" and trailing "+=:[/".
std::u16string_view WantedLabel(std::u16string_view arguments, const Syntax& syntax);
