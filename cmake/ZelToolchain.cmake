# Compiler settings that every target of this project shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(PROJECT_IS_TOP_LEVEL)
  # One folder for programs and libraries: a Windows program finds its DLLs beside it.
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
  set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

  if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
  endif()

  find_program(CCACHE_PROGRAM ccache)
  if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # The two settings let it work with precompiled headers.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${CCACHE_PROGRAM}")
  endif()
endif()

include(GNUInstallDirs)

# Optimised libraries on Linux are optimised as a whole. (mingw-w64 loses exports that way.)
include(CheckIPOSupported)
set(ZELDT_OPTIMISE_WHOLE OFF)
if(NOT WIN32 AND NOT ZELDT_SANITIZE AND NOT ZELDT_COVERAGE)
  check_ipo_supported(RESULT ZELDT_OPTIMISE_WHOLE OUTPUT ipo_output LANGUAGES CXX)
endif()

# zel_configure_target(<target>): warnings, sanitizers and coverage as the options say.
function(zel_configure_target target)
  target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual
      -Wformat=2 -Wundef)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # g++ 12 reports overlaps inside its own std::string where there are none.
    target_compile_options(${target} PRIVATE -Wno-restrict)
  endif()
  if(ZELDT_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(ZELDT_SANITIZE)
    target_compile_options(${target} PRIVATE
        -fsanitize=${ZELDT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${ZELDT_SANITIZE})
  endif()
  if(ZELDT_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} PRIVATE --coverage)
  endif()
endfunction()
