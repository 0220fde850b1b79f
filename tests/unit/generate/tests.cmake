# Generated sheets read by GDAL through the public functions: boxes, tables, .prj files, and the scene
# set reprojected by ogr2ogr against the latlong set. Needs the Python that carries GDAL's bindings.
find_program(VXK_GDAL_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
add_test(NAME generate.gdal_check
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/gdal_generate_check.py)
set_tests_properties(generate.gdal_check PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The vxk generate command as a user runs it, its files read back with GDAL.
add_test(NAME generate.vxk_generate
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/vxk_generate_test.py)
set_tests_properties(generate.vxk_generate PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
