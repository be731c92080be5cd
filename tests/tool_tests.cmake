# The command line tool, samples of other programs, the corpus and what the README shows.

orv_add_test(samples)

foreach(subject tool tool_pages tool_writing)
    orv_add_test(${subject} SOURCES tooltest.h)
    add_dependencies(tst_${subject} orvrtf)
    target_compile_definitions(tst_${subject} PRIVATE
        ORVRTF_TOOL="$<TARGET_FILE:orvrtf>"
        ORVRTF_VERSION="${PROJECT_VERSION}")
endforeach()

set_tests_properties(tool_pages PROPERTIES LABELS "unit;acceptance;slow")

# A gigabyte through a pipe.
add_test(NAME strip_memory COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/strip_memory.py $<TARGET_FILE:orvrtf>)
set_tests_properties(strip_memory PROPERTIES LABELS slow)

orv_add_test(tool_documents SOURCES
    ../tools/orvrtf/DocumentInfo.cpp
    ../tools/orvrtf/HtmlExport.cpp
    ../tools/orvrtf/TextExport.cpp
    ../tools/orvrtf/VisibleDocument.cpp)
target_include_directories(tst_tool_documents PRIVATE ../tools/orvrtf)

orv_add_test(tool_formats LABELS slow)
add_dependencies(tst_tool_formats orvrtf)
target_compile_definitions(tst_tool_formats PRIVATE ORVRTF_TOOL="$<TARGET_FILE:orvrtf>")

# README.md's example as it stands there, so that it compiles and works for its readers.
add_executable(readme_example ${CMAKE_CURRENT_BINARY_DIR}/readme_example.cpp)
add_custom_command(OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/readme_example.cpp
    COMMAND ${CMAKE_COMMAND} -DREADME=${PROJECT_SOURCE_DIR}/README.md
        -DOUTPUT=${CMAKE_CURRENT_BINARY_DIR}/readme_example.cpp
        -P ${CMAKE_CURRENT_SOURCE_DIR}/ExtractExample.cmake
    DEPENDS ${PROJECT_SOURCE_DIR}/README.md ExtractExample.cmake
    VERBATIM)
target_link_libraries(readme_example PRIVATE OrvRtf)
add_test(NAME readme_example COMMAND readme_example ${CMAKE_CURRENT_SOURCE_DIR}/data/pandoc-links.rtf)
set_tests_properties(readme_example PROPERTIES
    LABELS docs
    ENVIRONMENT "${ORV_TEST_ENVIRONMENT}"
    PASS_REGULAR_EXPRESSION "See the plain web link for more")

# Real files of many programs, where a folder of them is at hand: <folder>/**/*.rtf with the expected texts
# below <folder>/expected and text_recall.py, which compares them.
if(NOT DEFINED ORVRTF_CORPUS_DIR AND EXISTS ${PROJECT_SOURCE_DIR}/../shared/corpus/text_recall.py)
    get_filename_component(found ${PROJECT_SOURCE_DIR}/../shared/corpus ABSOLUTE)
endif()
set(ORVRTF_CORPUS_DIR "${found}" CACHE PATH "Folder of RTF files to try the reader on; empty for none")
if(ORVRTF_CORPUS_DIR)
    orv_add_test(corpus LABELS corpus)
    target_compile_definitions(tst_corpus PRIVATE ORVRTF_CORPUS_DIR="${ORVRTF_CORPUS_DIR}")

    add_test(NAME corpus_recall COMMAND ${PROJECT_SOURCE_DIR}/scripts/corpus.sh ${ORVRTF_CORPUS_DIR})
    set_tests_properties(corpus_recall PROPERTIES
        LABELS corpus
        ENVIRONMENT "${ORV_TEST_ENVIRONMENT};ORVRTF_TOOL=$<TARGET_FILE:orvrtf>")
endif()
