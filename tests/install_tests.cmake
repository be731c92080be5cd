# The library as others get it: installed, as packages, and what it lets them link to.

if(ORVRTF_SANITIZE OR NOT ORVRTF_PLATFORM STREQUAL "bundled")
    return()
endif()

add_test(NAME install COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/install.sh
    ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${CMAKE_CXX_COMPILER} ${CMAKE_COMMAND})
add_test(NAME subproject COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/install/subproject.sh
    ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR} ${CMAKE_CXX_COMPILER} ${CMAKE_COMMAND} ${ORVRTF_QT_MAJOR})
set_tests_properties(install subproject PROPERTIES LABELS install)

# Names contain types of Qt, which differ between its major versions; packages are made for the default one.
if(NOT ORVRTF_QT_MAJOR EQUAL 5 OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
endif()

add_test(NAME exported_symbols
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/symbols.sh $<TARGET_FILE_DIR:OrvRtf>)
set_tests_properties(exported_symbols PROPERTIES LABELS install)

# Builds in a folder of its own, with all processors.
cmake_host_system_information(RESULT processors QUERY NUMBER_OF_LOGICAL_CORES)
add_test(NAME packages COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/packages.sh ${PROJECT_SOURCE_DIR})
set_tests_properties(packages PROPERTIES
    LABELS package
    PROCESSORS ${processors}
    TIMEOUT 1800)
