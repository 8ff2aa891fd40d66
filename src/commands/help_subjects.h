// The subjects that HELP sorts the commands by.
#pragma once

#include <string_view>
#include <vector>

struct HelpSubject {
    std::u16string_view name;
    std::u16string_view title;
    std::u16string_view commands; // names parted by blanks
};

// The last one has no names: it takes the commands that no other has.
extern const std::vector<HelpSubject> helpSubjects;

// Without regard to case, and by a beginning that only one has; null for none.
const HelpSubject* FindHelpSubject(std::u16string_view name);
const HelpSubject& HelpSubjectOf(std::u16string_view command);
