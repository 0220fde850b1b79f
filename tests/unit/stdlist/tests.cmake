# The vxk sheet command, run as a user runs it.
add_test(NAME stdlist.vxk_sheet
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/unit/stdlist/vxk_sheet_check.py)
set_tests_properties(stdlist.vxk_sheet PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# Where sheets lie: vxk sheet --at, --bounds and --children against boxes worked out from the
# nomenclature, their WKT and GeoJSON read with GDAL.
add_test(NAME stdlist.vxk_sheet_where
  COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/unit/stdlist/vxk_sheet_where_check.py)
set_tests_properties(stdlist.vxk_sheet_where PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
