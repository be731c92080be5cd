# Writing RTF, and both directions on the clipboard.

orv_add_test(clipboard)
orv_add_test(files)
orv_add_test(inmemory_writing)
orv_add_test(listitemtext INTERNAL)
orv_add_test(pagesetup)
orv_add_test(roundtrip)
orv_add_test(rtfoutput INTERNAL)
orv_add_test(writer_charformats)
orv_add_test(writer_escaping INTERNAL)
orv_add_test(writer_fragments)
orv_add_test(writer_frame)
orv_add_test(writer_lists)
orv_add_test(writer_notes)
orv_add_test(writer_paragraphs)
orv_add_test(writer_tables)

# What the tool writes, opened with other word processors and converters.
foreach(script acceptance acceptance_structure)
    add_test(NAME ${script}
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/${script}.py $<TARGET_FILE:orvrtf> ${CMAKE_CURRENT_SOURCE_DIR}/data)
    set_tests_properties(${script} PROPERTIES
        LABELS acceptance
        ENVIRONMENT "${ORV_TEST_ENVIRONMENT}"
        TIMEOUT 900)
endforeach()
