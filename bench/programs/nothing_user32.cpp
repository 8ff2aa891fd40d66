// Does nothing either, but depends on the system's window library, as most programs do.
#include <windows.h>

int main() { return GetSystemMetrics(SM_CXSCREEN) < 0 ? 1 : 0; }
