# Writing RTF.

orv_add_test(listnumber INTERNAL)

# What the tool writes, opened with other word processors and converters.
add_test(NAME acceptance
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/acceptance.py $<TARGET_FILE:orvrtf> ${CMAKE_CURRENT_SOURCE_DIR}/data)
set_tests_properties(acceptance PROPERTIES LABELS acceptance ENVIRONMENT "${ORV_TEST_ENVIRONMENT}" TIMEOUT 900)
