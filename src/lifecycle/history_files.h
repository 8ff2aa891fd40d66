// The files HistFile and DirHistFile, in which the histories outlive the shell: read at start-up, written at
// shut-down.
#pragma once

// Fills the lists in use from their files as far as they are empty: a list that shells share is filled by the
// first of them. A file that does not exist yet is no error.
void ReadHistoryFiles();

// Writes both lists in use to their files, unless standard output is a pipe. A file is replaced as a whole
// once it is complete, and its text is in UTF-8 unless UnicodeOutput asks for more.
void WriteHistoryFiles();
