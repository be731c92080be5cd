# The example programs. tst_editor_clipboard has an X server of its own, and xclip as the other program.
orv_add_test(editor LIBRARIES OrvRtfEditorObjects LABELS gui)
orv_add_test(editor_clipboard LIBRARIES OrvRtfEditorObjects LABELS gui)
orv_add_test(editor_links LIBRARIES OrvRtfEditorObjects LABELS gui)
orv_add_test(editor_notes LIBRARIES OrvRtfEditorObjects LABELS gui)
orv_add_test(editor_pages LIBRARIES OrvRtfEditorObjects LABELS gui)
orv_add_test(editor_revisions LIBRARIES OrvRtfEditorObjects LABELS gui)
