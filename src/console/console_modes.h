// The state in which the shell wants its console.
#pragma once

// Puts the console's modes in order and notes its colours when they have not been seen before. Called before
// each prompt, since programs leave consoles in any state.
void PrepareConsole();

// The colours that COLOR goes back to: the setting StdColors, else those the shell has found.
unsigned StandardColors();
