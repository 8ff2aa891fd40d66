// The colours of a command line while it is typed. Pure; a quick look that runs at every key and never
// expands anything.
#pragma once

#include <string_view>
#include <vector>

#include "console/editor_world.h"
#include "console/line_picture.h"

// Runs that cover the text; lines that are too long to be looked at for every key get a single one. `plain`
// is for what has no colour of its own.
std::vector<ColorRun> ColorLine(std::u16string_view text, EditorWorld& world, std::uint8_t plain);
