# The example programs. tst_editor_clipboard has an X server of its own, and xclip as the other program.
if(TARGET OrvRtfEditorObjects)
    foreach(subject editor editor_clipboard editor_links editor_notes editor_pages editor_revisions)
        orv_add_test(${subject} LIBRARIES OrvRtfEditorObjects LABELS gui)
    endforeach()
endif()

# What docs/guide.md tells its readers to do, done.
add_test(NAME guide
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/guide.py ${PROJECT_SOURCE_DIR}/docs/guide.md
        ${PROJECT_SOURCE_DIR}/examples/guide ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
set_tests_properties(guide PROPERTIES LABELS docs ENVIRONMENT "${ORV_TEST_ENVIRONMENT}")
