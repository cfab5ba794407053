# What an installed copy consists of beside libraries and headers: the CMake package and the pkg-config file. Both find
# their folders from where they lie, so that a copy can be moved.
include(CMakePackageConfigHelpers)

install(TARGETS arkpx EXPORT arkpx-targets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS arkpx_static EXPORT arkpx-targets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")

set(package "${CMAKE_INSTALL_LIBDIR}/cmake/arkpx")
install(EXPORT arkpx-targets NAMESPACE arkpx:: DESTINATION ${package})
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/arkpx-config.cmake.in"
    "${PROJECT_BINARY_DIR}/arkpx-config.cmake" INSTALL_DESTINATION ${package})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/arkpx-config-version.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/arkpx-config.cmake" "${PROJECT_BINARY_DIR}/arkpx-config-version.cmake"
        DESTINATION ${package})

if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    set(pc_prefix "${CMAKE_INSTALL_PREFIX}")
    set(pc_libdir "${CMAKE_INSTALL_FULL_LIBDIR}")
    set(pc_includedir "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
else()
    file(RELATIVE_PATH up "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
    set(pc_prefix "\${pcfiledir}/${up}")
    set(pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
    set(pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/arkpx.pc.in" "${PROJECT_BINARY_DIR}/arkpx.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/arkpx.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
