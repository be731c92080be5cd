# What finds the installed library: the package configuration of CMake and the file of pkg-config.
include(CMakePackageConfigHelpers)

# An older minor version of Qt may lack what the library was linked with.
set(ORVRTF_QT_MINIMUM ${${ORVRTF_QT}_VERSION_MAJOR}.${${ORVRTF_QT}_VERSION_MINOR})

configure_package_config_file(cmake/OrvRtfConfig.cmake.in ${PROJECT_BINARY_DIR}/OrvRtfConfig.cmake
    INSTALL_DESTINATION ${ORVRTF_CONFIG_FOLDER})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/OrvRtfConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
        ${PROJECT_BINARY_DIR}/OrvRtfConfig.cmake
        ${PROJECT_BINARY_DIR}/OrvRtfConfigVersion.cmake
    DESTINATION ${ORVRTF_CONFIG_FOLDER}
    COMPONENT development)
install(EXPORT OrvRtfTargets
    NAMESPACE OrvRtf::
    DESTINATION ${ORVRTF_CONFIG_FOLDER}
    COMPONENT development)

# The file of pkg-config gives paths relative to itself. The platform libraries of an application are its own
# business to link.
file(RELATIVE_PATH up /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" ORVRTF_PC_PREFIX "\${pcfiledir}/${up}")
if(ORVRTF_PLATFORM STREQUAL "external")
    install(FILES cmake/OrvPlatform.cmake DESTINATION ${ORVRTF_CONFIG_FOLDER} COMPONENT development)
else()
    set(ORVRTF_PC_PLATFORM_LIBS " -lOrvBase -lOrvGui -lOrvCore")
endif()
configure_file(cmake/OrvRtf.pc.in ${PROJECT_BINARY_DIR}/OrvRtf.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/OrvRtf.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
