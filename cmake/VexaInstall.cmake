# Installation: library, headers, CMake package and pkg-config file.

include(CMakePackageConfigHelpers)

set(VEXA_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/vexa")
set(VEXA_PKGCONFIG_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(TARGETS vexa EXPORT vexaTargets)
install(DIRECTORY include/vexa
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.h")
install(EXPORT vexaTargets NAMESPACE vexa:: DESTINATION "${VEXA_CMAKE_DIR}")

configure_package_config_file(cmake/vexaConfig.cmake.in vexaConfig.cmake
    INSTALL_DESTINATION "${VEXA_CMAKE_DIR}"
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(vexaConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(
    FILES
        "${CMAKE_CURRENT_BINARY_DIR}/vexaConfig.cmake"
        "${CMAKE_CURRENT_BINARY_DIR}/vexaConfigVersion.cmake"
    DESTINATION "${VEXA_CMAKE_DIR}")

# With relative directories the prefix follows from where the .pc file lies, so that an installed
# tree may be moved; absolute ones (a packager's choice) are fixed.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    set(VEXA_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
    set(VEXA_PC_LIBDIR "${CMAKE_INSTALL_FULL_LIBDIR}")
    set(VEXA_PC_INCLUDEDIR "${CMAKE_INSTALL_FULL_INCLUDEDIR}")
else()
    file(RELATIVE_PATH vexa_pc_up
        "${CMAKE_INSTALL_PREFIX}/${VEXA_PKGCONFIG_DIR}" "${CMAKE_INSTALL_PREFIX}")
    string(REGEX REPLACE "/$" "" vexa_pc_up "${vexa_pc_up}")
    set(VEXA_PC_PREFIX "\${pcfiledir}/${vexa_pc_up}")
    set(VEXA_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
    set(VEXA_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
configure_file(cmake/vexa.pc.in vexa.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vexa.pc" DESTINATION "${VEXA_PKGCONFIG_DIR}")
