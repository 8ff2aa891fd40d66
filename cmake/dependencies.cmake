# The libraries we link, each under one name of ours, whatever the machine calls it. They come from tools/bootstrap
# (cross build), from Debian's -dev packages (native build), or from MSYS2 or vcpkg (on Windows).
find_package(PkgConfig REQUIRED)

function(movacore_library name target)
  add_library(movacore_${name} INTERFACE)
  target_link_libraries(movacore_${name} INTERFACE ${target})
  add_library(movacore::${name} ALIAS movacore_${name})
endfunction()

function(movacore_pkg_config_library name module)
  pkg_check_modules(movacore_pc_${name} REQUIRED IMPORTED_TARGET GLOBAL ${module})
  movacore_library(${name} PkgConfig::movacore_pc_${name})
endfunction()

# Regular expressions. Some builds of it describe themselves for CMake, others for pkg-config only.
find_package(oniguruma CONFIG QUIET)
if(oniguruma_FOUND)
  movacore_library(onig oniguruma::onig)
else()
  movacore_pkg_config_library(onig oniguruma)
  if(MINGW)
    target_compile_definitions(movacore_onig INTERFACE ONIG_STATIC)
  endif()
endif()

# Big integers and floating numbers of any precision.
movacore_pkg_config_library(gmp gmp)
movacore_pkg_config_library(mpfr mpfr)
target_link_libraries(movacore_mpfr INTERFACE movacore_gmp)

# Checksums.
movacore_pkg_config_library(nettle nettle)

# Archives; only the engine uses them.
if(WIN32)
  find_package(ZLIB REQUIRED)
  find_package(LibArchive REQUIRED)
  movacore_library(archive LibArchive::LibArchive)
  target_link_libraries(movacore_archive INTERFACE ZLIB::ZLIB)
  if(MINGW)
    target_compile_definitions(movacore_archive INTERFACE LIBARCHIVE_STATIC)
    # Its random numbers come from advapi32, which must not be loaded with the shell.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/advapi32_late.def)
    set(movacoreLateLibrary ${PROJECT_BINARY_DIR}/libadvapi32_late.a)
    execute_process(COMMAND ${CMAKE_DLLTOOL} -d ${PROJECT_SOURCE_DIR}/cmake/advapi32_late.def -y ${movacoreLateLibrary}
                    COMMAND_ERROR_IS_FATAL ANY)
    target_link_libraries(movacore_archive INTERFACE ${movacoreLateLibrary} delayimp)
  endif()
endif()

# Only the tests need it.
find_package(GTest QUIET)
