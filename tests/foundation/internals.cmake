# Tests of what the library keeps to itself; they compile the sources in question.
zel_add_test(pool_test
    SOURCES foundation/pool_test.cpp ${PROJECT_SOURCE_DIR}/foundation/DTPOOL.cpp
    LIBRARIES zelrt)
if(NOT ZELDT_POOL)
  target_compile_definitions(pool_test PRIVATE ZELDT_NO_POOL)
endif()

zel_add_test(sortorder_test SOURCES foundation/sortorder_test.cpp LIBRARIES zelrt)

set(used_memory support/used_memory_linux.cpp)
if(WIN32)
  set(used_memory support/used_memory_windows.cpp)
endif()
zel_add_test(memory_test SOURCES foundation/memory_test.cpp ${used_memory} LIBRARIES ZELQRNDT017)
if(WIN32)
  target_link_libraries(memory_test PRIVATE psapi)
elseif(NOT ZELDT_SANITIZE)
  zel_add_test(allocation_test SOURCES foundation/allocation_test.cpp LIBRARIES ZELQRNDT017)
endif()
