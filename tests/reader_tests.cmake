# Reading RTF.
orv_add_test(characterwords)
orv_add_test(codepages)
orv_add_test(damaged LABELS slow)
orv_add_test(destinations)
orv_add_test(devices)
orv_add_test(extremes LABELS slow)
orv_add_test(charformatcache INTERNAL)
orv_add_test(paragraph INTERNAL)
orv_add_test(guiless)
orv_add_test(inmemory)
orv_add_test(input INTERNAL)
orv_add_test(keywords)
orv_add_test(limits INTERNAL)
orv_add_test(lists_reading)
orv_add_test(loadfile LABELS slow)
orv_add_test(paragraphwords)
orv_add_test(properties)
orv_add_test(readerframe)
orv_add_test(readerstate)
orv_add_test(stripper)
orv_add_test(textinserter INTERNAL)
orv_add_test(threads)
orv_add_test(tokenizer)
orv_add_test(wordcache INTERNAL)

# Sanitizers take memory and time of their own, and other programs disturb the times. The times of one version of Qt
# will do.
if(ORVRTF_QT_MAJOR EQUAL 5 AND NOT ORVRTF_SANITIZE)
    orv_add_test(hostile LABELS slow)
    set_tests_properties(hostile PROPERTIES TIMEOUT 900 RUN_SERIAL TRUE)
endif()

# Reading in a program without any application object, which QtTest always makes.
add_executable(noapp_reader noapp_reader.cpp)
target_include_directories(noapp_reader PRIVATE ${PROJECT_SOURCE_DIR}/common)
target_link_libraries(noapp_reader PRIVATE OrvRtf)
add_test(NAME noapp_reader COMMAND noapp_reader)
set_tests_properties(noapp_reader PROPERTIES LABELS unit)

# Every public header compiles by itself, and may be included twice.
file(GLOB ORV_PUBLIC_HEADERS CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/common/*.h
    ${PROJECT_SOURCE_DIR}/rtf/*.h
    ${PROJECT_SOURCE_DIR}/view/*.h
    ${PROJECT_SOURCE_DIR}/platform/*/*.h)
list(FILTER ORV_PUBLIC_HEADERS EXCLUDE REGEX "_p\\.h$")
set(ORV_HEADER_SOURCES)
foreach(header ${ORV_PUBLIC_HEADERS})
    get_filename_component(name ${header} NAME)
    get_filename_component(stem ${header} NAME_WE)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${stem}.cpp)
    file(GENERATE OUTPUT ${source} CONTENT "#include \"${name}\"\n#include \"${name}\"\n")
    list(APPEND ORV_HEADER_SOURCES ${source})
endforeach()
add_library(headers_alone OBJECT ${ORV_HEADER_SOURCES})
set_target_properties(headers_alone PROPERTIES AUTOMOC OFF)
target_link_libraries(headers_alone PRIVATE OrvRtf)
