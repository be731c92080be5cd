# The platform libraries.

orv_add_test(coreutil)
orv_add_test(documentclone)
orv_add_test(guiutil)
orv_add_test(platform_guiless)
orv_add_test(textdocsupport SOURCES data/platform.qrc)
set_target_properties(tst_textdocsupport PROPERTIES AUTORCC ON)
orv_add_test(textformat)
orv_add_test(textlistformat)
orv_add_test(texttransform)
orv_add_test(texttransform_programs LABELS slow)
orv_add_test(textutil)
orv_add_test(unit)

add_executable(noapp_transform noapp_transform.cpp)
target_link_libraries(noapp_transform PRIVATE OrvRtf)
add_test(NAME noapp_transform COMMAND noapp_transform)
set_tests_properties(noapp_transform PROPERTIES LABELS unit)
