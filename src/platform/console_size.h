// How much text fits on the console that standard output leads to.
#pragma once

struct ConsoleSize {
    int columns = 80;
    int rows = 25;
};

// The window's size; the defaults above when standard output is no console.
ConsoleSize OutputSize();
