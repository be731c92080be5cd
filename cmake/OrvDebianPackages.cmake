# cpack -G DEB: the packages liborvrtf1 (what programs run with), liborvrtf-dev (what they are built with) and orvrtf
# (the tool). scripts/package.sh makes them in a build folder that is configured for /usr.

set(ORVRTF_PACKAGE_MAINTAINER "OrvRtf maintainers <maintainers@orvrtf.invalid>" CACHE STRING
    "Name and address of who is responsible for packages made of this build")

set(ORVRTF_DEB_RUNTIME liborvrtf${PROJECT_VERSION_MAJOR})
set(deb_folder ${PROJECT_BINARY_DIR}/debian)
set(deb_source_folder ${PROJECT_SOURCE_DIR}/cmake/debian)

# A package needs copyright and changelogs; a plain installation leaves them out.
string(TIMESTAMP ORVRTF_DEB_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${deb_source_folder}/changelog.in ${deb_folder}/changelog @ONLY)
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${deb_folder}/CHANGELOG.md COPYONLY)
foreach(name changelog CHANGELOG.md)
    execute_process(COMMAND gzip -9 -n -c ${deb_folder}/${name} OUTPUT_FILE ${deb_folder}/${name}.gz)
endforeach()

# orv_deb_package(<component> <package>): the name of the package of <component>, and the files that each package has.
macro(orv_deb_package component package)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    install(FILES
            ${deb_source_folder}/copyright
            ${deb_folder}/changelog.gz
            ${deb_folder}/CHANGELOG.md.gz
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package}
        COMPONENT ${component}
        EXCLUDE_FROM_ALL)
endmacro()

orv_deb_package(runtime ${ORVRTF_DEB_RUNTIME})
orv_deb_package(development liborvrtf-dev)
orv_deb_package(tool orvrtf)

# What the system's linker and other packages must know of the libraries.
configure_file(${deb_source_folder}/shlibs.in ${deb_folder}/shlibs @ONLY)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${deb_folder}/shlibs ${deb_source_folder}/triggers)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvrtf)
# Each package has a summary of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_CONTACT ${ORVRTF_PACKAGE_MAINTAINER})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/OrvPackagingChecks.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/OrvCompressPages.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/OrvFinishPackages.cmake)
set(CPACK_ORVRTF_CONFIGURED_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_COMPONENTS_ALL runtime development tool)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOL_DEPENDS runtime)

set(deb_qt_dev_5 qtbase5-dev)
set(deb_qt_dev_6 qt6-base-dev)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS "libreoffice-writer | libreoffice-writer-nogui, abiword, pandoc")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS ${deb_qt_dev_${ORVRTF_QT_MAJOR}})
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION text)

set(deb_library_description
"This library reads and writes Rich Text Format, as word processors exchange it
in files and on the clipboard, from and into the text documents of Qt:
formats, tables, lists, pictures, links and notes.")
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "conversion between RTF and QTextDocument: libraries
${deb_library_description}
.
This package has the shared libraries.")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "conversion between RTF and QTextDocument: development files
${deb_library_description}
.
This package has the headers, and what CMake and pkg-config need.")
set(CPACK_DEBIAN_TOOL_DESCRIPTION "converts between RTF, HTML and plain text
The command orvrtf converts Rich Text Format files into HTML and plain text and
back, tells what they hold, checks them, and strips pictures. Other
word processor files are converted with the help of LibreOffice, AbiWord or
pandoc, where they are installed.")

include(CPack)
