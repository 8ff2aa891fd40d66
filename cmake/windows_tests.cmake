# Test programs that run as Windows programs: the engine tests and the helpers of the golden scripts.
file(GLOB movacoreEngineTests CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/engine/*.cpp)
file(GLOB movacoreHelpers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/helpers/*.cpp)

if(movacoreEngineTests AND TARGET movacore_objects AND GTest_FOUND)
  add_executable(engine_tests ${movacoreEngineTests})
  target_compile_definitions(engine_tests PRIVATE MOVACORE_STATIC)
  target_include_directories(engine_tests PRIVATE ${PROJECT_SOURCE_DIR})
  target_link_libraries(engine_tests PRIVATE movacore_objects GTest::gtest GTest::gtest_main)
endif()

# One source is one program; their folder is put on the path of every golden script.
foreach(source IN LISTS movacoreHelpers)
  get_filename_component(name ${source} NAME_WE)
  add_executable(helper_${name} ${source})
  set_target_properties(helper_${name} PROPERTIES
    OUTPUT_NAME ${name} RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin/helpers)
  target_link_libraries(helper_${name} PRIVATE movacore_options)
  if(MINGW)
    target_link_options(helper_${name} PRIVATE -municode)
  endif()
  # The one whose kind matters: it keeps its console entry point, and only its header says "windowed".
  if(name STREQUAL "windowed")
    if(MSVC)
      target_link_options(helper_${name} PRIVATE /SUBSYSTEM:WINDOWS /ENTRY:wmainCRTStartup)
    else()
      target_link_options(helper_${name} PRIVATE -Wl,--subsystem,windows)
    endif()
  endif()
endforeach()

# What bench/ compares the shell with.
file(GLOB movacoreBenchPrograms CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/programs/*.cpp)
foreach(source IN LISTS movacoreBenchPrograms)
  get_filename_component(name ${source} NAME_WE)
  add_executable(bench_${name} ${source})
  set_target_properties(bench_${name} PROPERTIES
    OUTPUT_NAME ${name} RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin/bench)
  target_link_libraries(bench_${name} PRIVATE movacore_options)
  if(MINGW AND name STREQUAL "copyfile")
    target_link_options(bench_${name} PRIVATE -municode)
  endif()
endforeach()
