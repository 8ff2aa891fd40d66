// Turns: of the threads that run commands only one does so at a time.
//
// The state of the shell belongs to whoever has the turn. It is passed on between commands (PassTurn) and
// while a thread waits for something outside (WaitingAside); both bring back the thread's own standard
// handles. As long as there is only one thread, and for threads that take no part, all of this is a look at
// one number.
#pragma once

#include <windows.h>

// The calling thread has the turn from now on; called before the second thread is made.
void BeginTurns();
// For a thread that joins: waits for its turn, and gives it back for good.
void TakeTurn();
void GiveTurn();

// Lets every thread that waits have its turn first.
void PassTurn();

// Put around a wait. Nothing of the shell may be touched while it lives.
class WaitingAside {
public:
    WaitingAside();
    ~WaitingAside();
    WaitingAside(const WaitingAside&) = delete;
    WaitingAside& operator=(const WaitingAside&) = delete;

private:
    bool aside;
    HANDLE handles[3] = {};
};
