# What every target of the project shares, and the two functions that declare a box and its tests.

function(veloxa_options)
  set(CMAKE_CXX_STANDARD 20 PARENT_SCOPE)
  set(CMAKE_CXX_STANDARD_REQUIRED ON PARENT_SCOPE)
  set(CMAKE_CXX_EXTENSIONS OFF PARENT_SCOPE)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON PARENT_SCOPE)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin PARENT_SCOPE)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin PARENT_SCOPE)
  set(CMAKE_BUILD_RPATH_USE_ORIGIN ON PARENT_SCOPE)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON PARENT_SCOPE)
  add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
                      -Wformat=2 -Werror)
  # g++ 12 sees overlaps that are not there in the standard library's joining of strings.
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
  # Nobody replaces a function of ours at load time: without this g++ inlines none of them in code that can be moved.
  add_compile_options($<$<CONFIG:Release>:-fno-semantic-interposition>)
  if(VELOXA_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
  endif()
  find_program(CCACHE ccache)
  if(CCACHE)
    # Without this sloppiness the cache leaves out whatever is built with a precompiled header.
    set(CMAKE_CXX_COMPILER_LAUNCHER env CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE} PARENT_SCOPE)
  endif()
endfunction()

# veloxa_box(NAME [DEPS box...] [LIBS library...])
# A box: one static library veloxa_NAME of every .cpp below this directory. DEPS are the boxes it may include.
function(veloxa_box NAME)
  cmake_parse_arguments(BOX "" "" "DEPS;LIBS" ${ARGN})
  file(GLOB_RECURSE SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  list(TRANSFORM BOX_DEPS PREPEND veloxa_)
  if(SOURCES)
    add_library(veloxa_${NAME} STATIC ${SOURCES})
    target_include_directories(veloxa_${NAME} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(veloxa_${NAME} PUBLIC ${BOX_DEPS} ${BOX_LIBS})
  else()
    add_library(veloxa_${NAME} INTERFACE)
    target_include_directories(veloxa_${NAME} INTERFACE ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(veloxa_${NAME} INTERFACE ${BOX_DEPS} ${BOX_LIBS})
  endif()
endfunction()

# veloxa_program(TARGET)
# Makes an executable a program that carries the host and loads the module: the whole host is in it, for the module file
# beside it to find.
function(veloxa_program TARGET)
  target_sources(${TARGET} PRIVATE $<TARGET_OBJECTS:veloxa_host> $<TARGET_OBJECTS:veloxa_store> $<TARGET_OBJECTS:veloxa_kernel>)
  target_include_directories(${TARGET} PRIVATE ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${TARGET} PRIVATE veloxa_module veloxa_disk ${CMAKE_DL_LIBS})
  set_target_properties(${TARGET} PROPERTIES ENABLE_EXPORTS ON BUILD_RPATH $ORIGIN)
endfunction()

# veloxa_test_places(NAME)
# Tells the test program test_NAME where the sources and the built programs are.
function(veloxa_test_places NAME)
  target_compile_definitions(test_${NAME} PRIVATE VELOXA_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
                                                  VELOXA_BINARY_DIR="${CMAKE_BINARY_DIR}")
endfunction()

# veloxa_test(NAME [MODULE] [LIBS target...])
# A test program test_NAME of every .cpp below this directory, each of its tests known to ctest. With MODULE it is a
# program that loads the module, so that the module's boxes are in it once; LIBS then names none of them.
function(veloxa_test NAME)
  cmake_parse_arguments(TEST "MODULE" "" "LIBS" ${ARGN})
  file(GLOB_RECURSE SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  if(NOT SOURCES)
    return()
  endif()
  add_executable(test_${NAME} ${SOURCES})
  target_include_directories(test_${NAME} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(test_${NAME} PRIVATE ${TEST_LIBS} GTest::gmock GTest::gtest_main)
  if(TEST_MODULE)
    veloxa_program(test_${NAME})
  endif()
  target_precompile_headers(test_${NAME} REUSE_FROM veloxa_test_headers)
  gtest_discover_tests(test_${NAME} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120)
endfunction()
