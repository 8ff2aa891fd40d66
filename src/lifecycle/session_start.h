// What a shell does for the person in front of it before the first line: its window, its name, and the
// commands that the registry keeps for command prompts.
#pragma once

// Finds out what the functions below will need. A console that opens together with the shell takes its time,
// so this is best done before the console is asked for anything.
void PrepareSession();

// Shows the copyright line where the setting and a console agree, and puts the console's window where the
// settings want it. A shell that runs in the console of another one leaves the window alone.
void ShowSession();

// Runs the AutoRun commands of the machine, then those of the user, unless the setting or /D forbids it.
void RunAutoRun();
