# How a library of this project is made.

# Callers write <ZELQRNDT017/folder/header.h>, installed or not: in the build tree a link
# named after the project stands for the source folder.
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/include")
file(CREATE_LINK "${PROJECT_SOURCE_DIR}" "${PROJECT_BINARY_DIR}/include/${PROJECT_NAME}" SYMBOLIC)

# zel_add_library(<name> [STATIC] SOURCES <file>... [HEADERS <file>...])
#
# Makes the library <name>, shared unless STATIC is given, whose file bears exactly that name.
# HEADERS are the public ones; they are installed into the folder they have here. Header sets
# name them, so that each is also checked to compile alone.
function(zel_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "STATIC" "" "SOURCES;HEADERS")
  if(arg_STATIC)
    add_library(${name} STATIC)
  else()
    add_library(${name} SHARED)
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        DEFINE_SYMBOL ${name}_BUILD
        INTERPROCEDURAL_OPTIMIZATION_RELEASE ${ZELDT_OPTIMISE_WHOLE}
        # Installed libraries find their siblings beside them.
        INSTALL_RPATH "$ORIGIN")
    if(WIN32)
      set_target_properties(${name} PROPERTIES PREFIX "")
    else()
      # Calls inside a library stay inside it, as they do on Windows.
      target_compile_options(${name} PRIVATE
          $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
      target_link_options(${name} PRIVATE -Wl,-Bsymbolic-functions)
    endif()
  endif()
  if(NOT WIN32)
    # A symbol that is unique in the process would keep the library from being unloaded, one that
    # came in with a static library too.
    target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
  endif()
  add_library(${PROJECT_NAME}::${name} ALIAS ${name})

  target_sources(${name} PRIVATE ${arg_SOURCES})
  target_include_directories(${name}
      PUBLIC
          "$<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>"
          "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>"
          "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
      PRIVATE "${PROJECT_SOURCE_DIR}")
  target_compile_features(${name} PUBLIC cxx_std_17)
  zel_configure_target(${name})

  set_property(GLOBAL APPEND PROPERTY ZEL_LIBRARIES ${name})
  foreach(header IN LISTS arg_HEADERS)
    cmake_path(ABSOLUTE_PATH header NORMALIZE)
    set_property(GLOBAL APPEND PROPERTY ZEL_PUBLIC_HEADERS "${header}")
  endforeach()
endfunction()
