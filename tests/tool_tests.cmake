# The command line tool, samples of other programs, the corpus and what the README shows.

orv_add_test(samples)

foreach(subject tool tool_batch tool_pages tool_writing)
    orv_add_test(${subject} SOURCES tooltest.h)
    add_dependencies(tst_${subject} orvrtf)
    target_compile_definitions(tst_${subject} PRIVATE
        ORVRTF_TOOL="$<TARGET_FILE:orvrtf>"
        ORVRTF_VERSION="${PROJECT_VERSION}")
endforeach()

target_sources(tst_tool_batch PRIVATE ../tools/orvrtf/BatchPlan.cpp)
target_include_directories(tst_tool_batch PRIVATE ../tools/orvrtf)
# What is preloaded gets ahead of the sanitizers, which object to that unless they are told not to.
add_library(namedtempfiles MODULE namedtempfiles.cpp)
target_link_libraries(namedtempfiles PRIVATE ${CMAKE_DL_LIBS})
add_dependencies(tst_tool_batch namedtempfiles)
target_compile_definitions(tst_tool_batch PRIVATE NAMED_TEMP_FILES="$<TARGET_FILE:namedtempfiles>")
set_property(TEST tool_batch APPEND PROPERTY ENVIRONMENT ASAN_OPTIONS=verify_asan_link_order=0)
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

# The recipe for many hosts as it stands in docs/batch.md. What sanitizers are told to overlook does not get to hosts.
if(NOT ORVRTF_SANITIZE)
    add_test(NAME batch_recipe
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/batch_recipe.sh ${PROJECT_SOURCE_DIR}/docs/batch.md $<TARGET_FILE:orvrtf>)
    set_tests_properties(batch_recipe PROPERTIES LABELS docs)
endif()

# What is installed beside the program: its manual page and the completion of its command line.
add_test(NAME tool_manual
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/manpage.sh ${PROJECT_SOURCE_DIR}/tools/orvrtf/orvrtf.1 $<TARGET_FILE:orvrtf>)
add_test(NAME tool_completion
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/completion.sh
        ${PROJECT_SOURCE_DIR}/tools/orvrtf/completion/orvrtf.bash $<TARGET_FILE:orvrtf>)
set_tests_properties(tool_manual tool_completion PROPERTIES LABELS docs)

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

# Whatever is not documented in the public headers, or documented wrongly, fails.
if(TARGET doc)
    add_test(NAME reference COMMAND ${DOXYGEN_EXECUTABLE} ${PROJECT_BINARY_DIR}/docs/Doxyfile)
    set_tests_properties(reference PROPERTIES LABELS docs)
endif()

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
