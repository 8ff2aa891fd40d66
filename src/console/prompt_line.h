// The line editor at the console of this process, with the shell around it.
#pragma once

#include <string_view>

#include "console/line_editor.h"

// Reads a line as `request` says; lines that a paste has left are given first. False when there is no console
// to edit on: nothing has been read then. Breaks are thrown.
bool EditConsoleLine(EditorAnswer& answer, const EditorRequest& request);
// Those lines are not to be given any more.
void DropPastedLines();
