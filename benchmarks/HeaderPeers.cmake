# Peers that consist of headers alone, taken from the system that builds for the one that the
# programs are for. A folder with links to them keeps out what else lies beside them.
set(root "${CMAKE_CURRENT_BINARY_DIR}/header_peers")
set(ZELBENCH_HEADER_PEERS "${root}/include")
file(MAKE_DIRECTORY "${ZELBENCH_HEADER_PEERS}")
foreach(folder boost cereal date fmt)
  if(IS_DIRECTORY "/usr/include/${folder}")
    file(CREATE_LINK "/usr/include/${folder}" "${ZELBENCH_HEADER_PEERS}/${folder}" SYMBOLIC)
  endif()
endforeach()
list(PREPEND CMAKE_FIND_ROOT_PATH "${root}")

find_path(ZELBENCH_FMT_INCLUDE fmt/format.h)
if(ZELBENCH_FMT_INCLUDE)
  add_library(fmt::fmt INTERFACE IMPORTED)
  target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
  set(fmt_FOUND TRUE)
endif()
