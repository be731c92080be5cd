# Messages: what translators are given, and what users see of their work.

orv_add_test(languages SOURCES ../tools/orvrtf/Translations.cpp)
target_include_directories(tst_languages PRIVATE ../tools/orvrtf)
target_compile_definitions(tst_languages PRIVATE ORVRTF_TRANSLATIONS="${ORVRTF_TRANSLATIONS_PATH}")

if(TARGET translations)
    add_test(NAME translations
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/translations.py ${ORV_TRANSLATION_SOURCES} -- ${ORV_LUPDATE})
    set_tests_properties(translations PROPERTIES LABELS docs)

    orv_add_test(german SOURCES tooltest.h)
    add_dependencies(tst_german orvrtf translations)
    target_compile_definitions(tst_german PRIVATE
        ORVRTF_TOOL="$<TARGET_FILE:orvrtf>"
        TRANSLATIONS_FOLDER="${PROJECT_BINARY_DIR}/${ORVRTF_TRANSLATIONS_FOLDER}")
endif()
