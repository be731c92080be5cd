# Writing RTF.

orv_add_test(listnumber INTERNAL)
