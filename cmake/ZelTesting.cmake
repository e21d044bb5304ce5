# How a test program is made.

if(CMAKE_CROSSCOMPILING)
  # GoogleTest for the other system, from the sources that the distribution ships.
  set(INSTALL_GTEST OFF)
  set(gtest_disable_pthreads OFF)
  add_subdirectory(/usr/src/googletest "${PROJECT_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  set_target_properties(gtest gtest_main gmock gmock_main PROPERTIES
      COMPILE_OPTIONS "-w" CXX_STANDARD 17)
  set(zel_gtest gmock gtest gtest_main)
else()
  find_package(GTest REQUIRED)
  set(zel_gtest GTest::gmock GTest::gtest GTest::gtest_main)
endif()

find_package(Python3 REQUIRED COMPONENTS Interpreter)
# It runs here, not on the system that is built for. With the emulator in front the exit status of
# every script would be lost.
set_target_properties(Python3::Interpreter PROPERTIES CROSSCOMPILING_EMULATOR "")

# Source for tests that load and unload libraries (tests/support/module_loader.h).
if(WIN32)
  set(zel_module_loader "${PROJECT_SOURCE_DIR}/tests/support/module_loader_windows.cpp")
else()
  set(zel_module_loader "${PROJECT_SOURCE_DIR}/tests/support/module_loader_linux.cpp")
endif()

# zel_set_locale(<test> <locale>): the system settings that a test runs with.
function(zel_set_locale test locale)
  if(WIN32)
    set_tests_properties(${test} PROPERTIES ENVIRONMENT "ZEL_WINE_LC_ALL=${locale}")
  else()
    set_tests_properties(${test} PROPERTIES ENVIRONMENT "LC_ALL=${locale}")
  endif()
endfunction()

# zel_add_test(<name> SOURCES <file>... LIBRARIES <target>... [STANDARD 17|20])
#
# Makes the test program <name> and registers it with ctest under the same name, with German
# system settings (OEM code page 850). With STANDARD it is compiled as exactly that C++, and reads its
# headers itself.
#
# zel_add_test_run(<test> <name> <locale>): the same program once more with other settings, for
# example C.UTF-8 for OEM code page 437.
#
# zel_add_code_page_runs(<name>): the same program with every kind of settings that matters to OEM
# code pages. ZEL_TEST_OEM_PAGE tells it which page the system has then.
function(zel_add_test name)
  zel_add_test_program(${name} ${ARGN})
  zel_add_test_run(${name} ${name} de_DE.UTF-8)
endfunction()

# zel_add_test_program(<name> ...): the program alone.
function(zel_add_test_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "STANDARD" "SOURCES;LIBRARIES")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} ${zel_gtest})
  zel_configure_test(${name})
  if(arg_STANDARD)
    set_target_properties(${name} PROPERTIES CXX_STANDARD ${arg_STANDARD})
  else()
    target_precompile_headers(${name} REUSE_FROM zel_test_precompiled)
  endif()
endfunction()

# zel_configure_test(<target>): the settings that test programs and their precompiled headers share.
function(zel_configure_test target)
  zel_configure_target(${target})
  # Tests run for a moment but take long to optimise, with sanitizers four times as long as without.
  # Line numbers are all that a failing test is asked for; variables would cost as much again.
  target_compile_options(${target} PRIVATE -O0 $<$<CONFIG:Debug>:-g1>)
  if(ZELDT_SANITIZE)
    # A pointer of the test's own that leads nowhere ends in the address sanitizer or a fault anyway.
    # To check each use of one takes half as long again to compile.
    target_compile_options(${target} PRIVATE
        -fno-sanitize=null,vptr,alignment,object-size,pointer-overflow)
  endif()
endfunction()

function(zel_add_test_run test name locale)
  # CMake puts the emulator for Windows programs in front.
  add_test(NAME ${test} COMMAND ${name})
  set_tests_properties(${test} PROPERTIES TIMEOUT 600)
  zel_set_locale(${test} "${locale}")
endfunction()

function(zel_add_code_page_runs name)
  set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT ZEL_TEST_OEM_PAGE=850)
  string(REGEX REPLACE "_test$" "" stem ${name})
  foreach(setting neutral|C.UTF-8|437 american|en_US.UTF-8|437 british|en_GB.UTF-8|850)
    string(REPLACE "|" ";" setting "${setting}")
    list(GET setting 0 kind)
    list(GET setting 1 locale)
    list(GET setting 2 page)
    zel_add_test_run(${stem}_${kind}_test ${name} ${locale})
    set_property(TEST ${stem}_${kind}_test APPEND PROPERTY ENVIRONMENT ZEL_TEST_OEM_PAGE=${page})
  endforeach()
endfunction()

# zel_add_database_test(<name> SOURCES <file>... LIBRARIES <target>...)
#
# Makes the test program <name> and registers it as <name>_sqlite and <name>_mariadb. Each run has a
# new, empty database; tests/support/database_testing.h reaches it and is linked already.
#
# Tests that concern one kind of database alone say so at the end of their name or that of their
# suite, OnSqlite or OnMariaDb; the other run leaves them out.
#
# zel_add_database_runs(<test> COMMAND <word>...): any command, twice like that. What it finds in its
# environment stands in tests/support/with_database.py.
function(zel_add_database_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
  zel_add_test_program(${name}
      SOURCES ${arg_SOURCES}
      LIBRARIES zel_database_testing ${arg_LIBRARIES})
  zel_add_database_runs(${name} COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${name}>)
endfunction()

function(zel_add_database_runs test)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "COMMAND")
  set(others_sqlite OnMariaDb)
  set(others_mariadb OnSqlite)
  foreach(kind sqlite mariadb)
    add_test(NAME ${test}_${kind}
        COMMAND Python3::Interpreter -B "${PROJECT_SOURCE_DIR}/tests/support/with_database.py"
            ${kind} "${PROJECT_BINARY_DIR}/databases/${test}_${kind}" -- ${arg_COMMAND})
    set_tests_properties(${test}_${kind} PROPERTIES TIMEOUT 600)
    zel_set_locale(${test}_${kind} de_DE.UTF-8)
    set_property(TEST ${test}_${kind} APPEND PROPERTY
        ENVIRONMENT "GTEST_FILTER=-*${others_${kind}}.*:*${others_${kind}}")
  endforeach()
endfunction()
