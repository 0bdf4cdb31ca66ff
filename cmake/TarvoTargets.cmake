# How every target of the project is built, and the two commands that make one.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE_PROGRAM}")
endif()

add_library(tarvo_options INTERFACE)
# No fused or reordered arithmetic: a product is the same number for number on every machine.
target_compile_options(tarvo_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off)
if(TARVO_SANITIZE)
  target_compile_options(tarvo_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  target_link_options(tarvo_options INTERFACE -fsanitize=address,undefined)
endif()

if(TARVO_FUZZ)
  target_compile_options(tarvo_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g)
  target_link_options(tarvo_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined)
endif()

# tarvo_library(NAME SOURCES... [LINKS lower floors...] [PRIVATE_LINKS third-party...])
# One library of one folder. Its folder is its only include directory, so a source can include only what stands in its
# own folder or in a library it links: the floors of the house are kept by the compiler.
function(tarvo_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE tarvo_options ${ARG_PRIVATE_LINKS})
endfunction()

# tarvo_qt_library(NAME ...): the same for a folder with Qt classes, whose meta-objects are made on the way.
function(tarvo_qt_library name)
  tarvo_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC Qt5::Widgets)
endfunction()

# tarvo_test(NAME SOURCES... [LINKS libraries...]): one GoogleTest program, its cases known to ctest one by one.
function(tarvo_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tarvo_options tarvo_test_support ${ARG_LINKS} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 120)
endfunction()

# tarvo_qt_test(NAME SOURCES... [LINKS libraries...]): the same with a QApplication, without a screen and in an empty home
# of its own.
function(tarvo_qt_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES} "${CMAKE_SOURCE_DIR}/tests/support/QtTestMain.cpp")
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE tarvo_options tarvo_test_support ${ARG_LINKS} Qt5::Test Qt5::Widgets GTest::gmock GTest::gtest)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 900 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endfunction()

# tarvo_benchmark(NAME SOURCES... [LINKS libraries...]): one Google Benchmark program, where that library is installed.
function(tarvo_benchmark name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  find_package(benchmark QUIET)
  if(NOT benchmark_FOUND)
    message(STATUS "Google Benchmark not found: ${name} is left out")
    return()
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_compile_definitions(${name} PRIVATE TARVO_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE tarvo_options ${ARG_LINKS} benchmark::benchmark_main)
endfunction()
