# What the libraries that are installed have in common.

set(ORVRTF_HEADER_FOLDER ${CMAKE_INSTALL_INCLUDEDIR}/OrvRtf)
set(ORVRTF_CONFIG_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/OrvRtf)

# Installed libraries find each other, and libraries that the system does not know, wherever they are moved to;
# those of a package are where the system looks anyway.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(CMAKE_SKIP_INSTALL_RPATH ON)
else()
    set(CMAKE_INSTALL_RPATH_USE_LINK_PATH ON)
endif()

# orv_public_headers(<result> <target>): the headers among the sources of <target> that are not private.
function(orv_public_headers result target)
    get_target_property(headers ${target} SOURCES)
    list(FILTER headers INCLUDE REGEX "\\.h$")
    list(FILTER headers EXCLUDE REGEX "_p\\.h$")
    set(${result} ${headers} PARENT_SCOPE)
endfunction()

# orv_library(<name> HEADERS …): version, exported symbols and installation of the shared library <name>.
function(orv_library name)
    cmake_parse_arguments(ARG "" "" "HEADERS" ${ARGN})
    set_target_properties(${name} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN")
    orv_export_own_symbols_only(${name})
    install(TARGETS ${name}
        EXPORT OrvRtfTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
            COMPONENT runtime
            NAMELINK_COMPONENT development
        INCLUDES DESTINATION ${ORVRTF_HEADER_FOLDER})
    install(FILES ${ARG_HEADERS}
        DESTINATION ${ORVRTF_HEADER_FOLDER}
        COMPONENT development)
endfunction()

# orv_export_own_symbols_only(<name>): leaves out templates of the standard library, which hidden visibility does
# not reach. Sanitizers need symbols of their own.
function(orv_export_own_symbols_only name)
    if(UNIX AND NOT APPLE AND NOT ORVRTF_SANITIZE)
        set(map ${PROJECT_SOURCE_DIR}/cmake/exported-symbols.map)
        target_link_options(${name} PRIVATE LINKER:--version-script=${map})
        set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${map})
    endif()
endfunction()
