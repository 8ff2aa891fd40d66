# The engine, the console host and the texts, as Windows binaries.
set(movacoreFloors
  text engine platform config files expand core console batch internals functions commands lifecycle)
set(movacoreSystemLibraries
  kernel32 user32 advapi32 shell32 shlwapi ole32 oleaut32 uuid version ws2_32 iphlpapi psapi winmm)

set(movacoreSources)
foreach(floor IN LISTS movacoreFloors)
  file(GLOB floorSources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${floor}/*.cpp)
  list(APPEND movacoreSources ${floorSources})
endforeach()
file(GLOB movacoreHostSources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/host/*.cpp)
file(GLOB movacoreTexts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/lang/*.h ${PROJECT_SOURCE_DIR}/src/lang/*.rc)

# movacore_version.h and the version resource of a binary, both from the project's version above.
set(movacoreGenerated ${PROJECT_BINARY_DIR}/generated)
configure_file(${PROJECT_SOURCE_DIR}/cmake/movacore_version.h.in ${movacoreGenerated}/movacore_version.h @ONLY)
target_include_directories(movacore_options INTERFACE ${movacoreGenerated})

function(movacore_version_resource target kind description)
  get_target_property(outputName ${target} OUTPUT_NAME)
  set(resource ${movacoreGenerated}/${outputName}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()

# The objects, once: the DLL and the engine tests are two ways to link them.
if(movacoreSources)
  add_library(movacore_objects OBJECT ${movacoreSources})
  target_compile_definitions(movacore_objects PRIVATE MOVACORE_BUILD)
  target_link_libraries(movacore_objects PUBLIC
    movacore_options movacore::onig movacore::mpfr movacore::gmp movacore::nettle movacore::archive
    ${movacoreSystemLibraries})

  add_library(movacore SHARED)
  set_target_properties(movacore PROPERTIES OUTPUT_NAME Movacore PREFIX "")
  target_link_libraries(movacore PRIVATE movacore_objects)
  movacore_version_resource(movacore DLL "Movacore command processor engine")
  target_sources(movacore PRIVATE ${PROJECT_SOURCE_DIR}/cmake/controls.rc)
  set_source_files_properties(${PROJECT_SOURCE_DIR}/cmake/controls.rc PROPERTIES
    OBJECT_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/controls.manifest)
endif()

if(movacoreHostSources AND TARGET movacore)
  add_executable(orv ${movacoreHostSources} ${PROJECT_SOURCE_DIR}/cmake/orv.rc)
  set_target_properties(orv PROPERTIES OUTPUT_NAME ORV)
  set_source_files_properties(${PROJECT_SOURCE_DIR}/cmake/orv.rc PROPERTIES
    OBJECT_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/orv.manifest)
  target_link_libraries(orv PRIVATE movacore_options movacore)
  movacore_version_resource(orv APP "ORV command shell")
  if(MSVC)
    target_link_options(orv PRIVATE /MANIFEST:NO)
  else()
    target_link_options(orv PRIVATE -municode)
  endif()
endif()

# Texts only: no code, no entry point, nothing to initialise when it is loaded. HELP shows the reference's pages from
# it, each a resource of its own.
if(EXISTS ${PROJECT_SOURCE_DIR}/src/lang/english.rc)
  file(GLOB referencePages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/reference/*.md)
  set(referenceScript ${movacoreGenerated}/reference.rc)
  set(referenceLines)
  foreach(page IN LISTS referencePages)
    get_filename_component(pageName ${page} NAME_WE)
    string(APPEND referenceLines "${pageName} REFERENCE \"${page}\"\n")
  endforeach()
  file(CONFIGURE OUTPUT ${referenceScript} CONTENT "${referenceLines}" @ONLY)
  set_source_files_properties(${referenceScript} PROPERTIES OBJECT_DEPENDS "${referencePages}")

  add_library(english SHARED ${PROJECT_SOURCE_DIR}/src/lang/english.rc ${referenceScript})
  set_source_files_properties(${PROJECT_SOURCE_DIR}/src/lang/english.rc PROPERTIES
    OBJECT_DEPENDS "${movacoreTexts}")
  set_target_properties(english PROPERTIES OUTPUT_NAME English PREFIX "" LINKER_LANGUAGE C)
  target_include_directories(english PRIVATE ${PROJECT_SOURCE_DIR}/src)
  if(MSVC)
    target_link_options(english PRIVATE /NOENTRY)
  else()
    target_link_options(english PRIVATE -nostdlib -Wl,--entry=0)
  endif()
  if(TARGET orv)
    add_dependencies(orv english)
  endif()
endif()
