// What must follow when a command has changed settings: most are read where they matter, a few have to be
// carried out.
#pragma once

#include <string_view>
#include <vector>

// Indexes of directives.
void ApplySettingEffects(const std::vector<int>& directives);

// Obeys "name=value" as a command that sets settings does, effects included. 0, or 2 when it was reported.
int ChangeSetting(std::u16string_view name, std::u16string_view value);
