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

# zel_add_test(<name> SOURCES <file>... LIBRARIES <target>... [ENVIRONMENT <variable=value>...])
#
# Makes the test program <name> and registers it with ctest under the same name. German system
# settings unless the environment says otherwise.
function(zel_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES;ENVIRONMENT")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} ${zel_gtest})
  target_compile_features(${name} PRIVATE cxx_std_20)
  zel_configure_target(${name})
  # The emulator that runs Windows programs is put in front by CMake.
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
      TIMEOUT 600
      ENVIRONMENT "LC_ALL=de_DE.UTF-8;ZEL_WINE_LC_ALL=de_DE.UTF-8;${arg_ENVIRONMENT}")
endfunction()
