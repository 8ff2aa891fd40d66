// What kind of program a file holds, by its headers.
#pragma once

#include <cstdint>
#include <string_view>

// Each family has its number for unknown, console and windowed programs, so that the windowed kinds are the
// multiples of three.
namespace program_type {
constexpr int notAProgram = 0;
constexpr int dos = 1;
constexpr int console16 = 2; // OS/2 1.x
constexpr int windowed16 = 3;
constexpr int other32 = 4; // native, boot and the like
constexpr int console32 = 5;
constexpr int windowed32 = 6;
constexpr int other64 = 7;
constexpr int console64 = 8;
constexpr int windowed64 = 9;

constexpr bool IsWindowed(int type) { return type != notAProgram && type % 3 == 0; }
} // namespace program_type

// The type of the file's program; notAProgram too when it cannot be read. A .COM file without header is DOS.
int GetExeType(std::u16string_view fileName);

// The two steps of it. Pure. From the file's first bytes: where the new header stands, 0 for a plain DOS
// program, -1 for no program at all.
std::int64_t NewHeaderPlace(std::string_view firstBytes);
// From the bytes at that place (as many as newHeaderBytes).
constexpr std::size_t newHeaderBytes = 96;
int TypeOfNewHeader(std::string_view header);
