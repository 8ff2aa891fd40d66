// What crosses the edge of the library: MOVA_EXPORT marks every exported function and datum, and nothing
// else leaves Movacore.dll. Exports are extern "C" and carry text as NUL-terminated UTF-16 buffers.
#pragma once

#if defined(MOVACORE_STATIC) || !defined(_WIN32)
#define MOVA_EXPORT extern "C"
#elif defined(MOVACORE_BUILD)
#define MOVA_EXPORT extern "C" __declspec(dllexport)
#else
#define MOVA_EXPORT extern "C" __declspec(dllimport)
#endif
