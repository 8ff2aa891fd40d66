# Compiler settings that every target of ours shares. Libraries we only use are compiled elsewhere, so that our
# warnings do not reach them.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

set(MOVACORE_SANITIZE "" CACHE STRING "Sanitizers for every target, as -fsanitize= takes them")
option(MOVACORE_FUZZ "Build the fuzz targets (clang only) in place of the unit tests" OFF)
option(MOVACORE_BENCH "Build the native benchmarks in place of the unit tests" OFF)

if(NOT MSVC)
  # Line numbers are enough for a stack trace; full debug information triples the size of every object.
  set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")
  set(CMAKE_CXX_FLAGS_SANITIZE "-O1 -g -fno-omit-frame-pointer")
endif()

find_program(MOVACORE_CCACHE ccache)
if(MOVACORE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${MOVACORE_CCACHE})
endif()

add_library(movacore_options INTERFACE)
target_include_directories(movacore_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(MSVC)
  target_compile_options(movacore_options INTERFACE /W4 /permissive- /utf-8 /Zc:__cplusplus)
else()
  target_compile_options(movacore_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
endif()
if(MOVACORE_SANITIZE)
  set(movacoreSanitizers -fsanitize=${MOVACORE_SANITIZE} -fno-sanitize-recover=all)
  target_compile_options(movacore_options INTERFACE ${movacoreSanitizers})
  target_link_options(movacore_options INTERFACE ${movacoreSanitizers})
endif()
if(WIN32)
  # 0x0A00 is Windows 10, the oldest system we run on.
  target_compile_definitions(movacore_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 WINVER=0x0A00)
endif()
if(MINGW)
  # One file per binary: the compiler's run-time libraries go inside.
  # Sections that begin at a page of the file are mapped from there; others may be read as a whole.
  target_link_options(movacore_options INTERFACE -static -Wl,--file-alignment,4096)
endif()
