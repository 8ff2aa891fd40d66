// Writing UTF-16 text to a handle in the encoding that its kind asks for.
#pragma once

#include <string_view>

#include <windows.h>

enum class OutputEncoding : int { CodePage, Utf8, Utf16 };

// Writes everything or answers false, the reason in the last error. Pure ASCII takes a short way.
bool WriteTextToFile(HANDLE file, std::u16string_view text, OutputEncoding encoding);
bool WriteTextToConsole(HANDLE console, std::u16string_view text);
bool WriteBytes(HANDLE file, std::string_view bytes);
