// The user's start-up file; RunStartupFiles stands in engine/batch_entry.h.
#pragma once

// Finds it for the next RunStartupFiles(u"MVSTART", ...), which then need not.
void FindStartupFileEarly();
// What was found counts no more.
void ForgetStartupFile();
