# Cross building for 64-bit Windows with Debian's MinGW-w64. The libraries that tools/bootstrap has built are
# found through the list it leaves in the build folder.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(movacoreTriple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${movacoreTriple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${movacoreTriple}-g++-posix)
set(CMAKE_RC_COMPILER ${movacoreTriple}-windres)

include(${CMAKE_CURRENT_LIST_DIR}/../build/deps-mingw.cmake OPTIONAL)
set(CMAKE_FIND_ROOT_PATH /usr/${movacoreTriple} ${MOVACORE_PREFIXES} ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# pkg-config must see the cross libraries only.
list(TRANSFORM MOVACORE_PREFIXES APPEND /lib/pkgconfig OUTPUT_VARIABLE movacorePkgConfig)
list(JOIN movacorePkgConfig ":" movacorePkgConfig)
set(ENV{PKG_CONFIG_LIBDIR} "${movacorePkgConfig}")
