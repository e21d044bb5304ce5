# Installation: headers in their folders, libraries, the CMake package and a pkg-config file.

include(CMakePackageConfigHelpers)

get_property(zel_libraries GLOBAL PROPERTY ZEL_LIBRARIES)
get_property(zel_public_headers GLOBAL PROPERTY ZEL_PUBLIC_HEADERS)

foreach(header IN LISTS zel_public_headers)
  cmake_path(RELATIVE_PATH header BASE_DIRECTORY "${PROJECT_SOURCE_DIR}" OUTPUT_VARIABLE relative)
  cmake_path(GET relative PARENT_PATH folder)
  if(folder STREQUAL "include")
    set(destination "${CMAKE_INSTALL_INCLUDEDIR}")
  else()
    set(destination "${CMAKE_INSTALL_INCLUDEDIR}/${PROJECT_NAME}/${folder}")
  endif()
  install(FILES "${header}" DESTINATION "${destination}")
endforeach()

install(TARGETS ${zel_libraries}
    EXPORT ${PROJECT_NAME}Targets
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")

set(zel_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/${PROJECT_NAME}")
install(EXPORT ${PROJECT_NAME}Targets
    NAMESPACE ${PROJECT_NAME}::
    DESTINATION "${zel_package_dir}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/${PROJECT_NAME}Config.cmake.in"
    "${PROJECT_BINARY_DIR}/${PROJECT_NAME}Config.cmake"
    INSTALL_DESTINATION "${zel_package_dir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/${PROJECT_NAME}ConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/${PROJECT_NAME}Config.cmake"
    "${PROJECT_BINARY_DIR}/${PROJECT_NAME}ConfigVersion.cmake"
    DESTINATION "${zel_package_dir}")

set(zel_packages ${PROJECT_NAME})
if(TARGET ZELQRNRS001)
  list(APPEND zel_packages ZELQRNRS001)
endif()
foreach(package IN LISTS zel_packages)
  configure_file("${PROJECT_SOURCE_DIR}/cmake/${package}.pc.in"
      "${PROJECT_BINARY_DIR}/${package}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${package}.pc"
      DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endforeach()
