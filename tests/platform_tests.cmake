# The platform libraries.

orv_add_test(coreutil)
orv_add_test(documentclone)
orv_add_test(guiutil)
orv_add_test(platform_guiless)
orv_add_test(textdocsupport SOURCES data/platform.qrc)
set_target_properties(tst_textdocsupport PROPERTIES AUTORCC ON)
orv_add_test(textformat)
orv_add_test(textlistformat)
orv_add_test(textutil)
orv_add_test(unit)
