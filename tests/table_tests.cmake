# Reading tables.
orv_add_test(tables_cells)
orv_add_test(tables_model)
orv_add_test(tables_reading)
orv_add_test(tables_robustness)
orv_add_test(tables_words)
