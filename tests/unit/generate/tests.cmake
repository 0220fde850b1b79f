# Generated sheets read by GDAL: boxes, tables, .prj files, and the scene set reprojected by ogr2ogr
# against the latlong set. The sheets come from a C host of the public header, so that the sanitizer
# build checks the library as it runs them. Needs the Python that carries GDAL's bindings.
add_executable(generate_tool ${CMAKE_CURRENT_LIST_DIR}/generate_tool.c)
target_include_directories(generate_tool PRIVATE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(generate_tool PRIVATE vxk_proj4_shp)
find_program(VXK_GDAL_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
add_test(NAME generate.gdal_check
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/gdal_generate_check.py $<TARGET_FILE:generate_tool>)
set_tests_properties(generate.gdal_check PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The vxk generate command as a user runs it, its files read back with GDAL.
add_test(NAME generate.vxk_generate
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/vxk_generate_test.py)
set_tests_properties(generate.vxk_generate PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The graticule lines and the frames measured with GDAL and GEOS.
add_test(NAME generate.gdal_lines
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/gdal_lines_check.py $<TARGET_FILE:generate_tool>)
set_tests_properties(generate.gdal_lines PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The dashes of the coordinate labels, written alone by a program over the generator's classes,
# measured with GDAL and GEOS.
add_executable(dash_tool ${CMAKE_CURRENT_LIST_DIR}/dash_tool.cpp)
target_link_libraries(dash_tool PRIVATE vxk_proj4_shp_static)
add_test(NAME generate.gdal_dashes
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/gdal_dashes_check.py $<TARGET_FILE:dash_tool>)
set_tests_properties(generate.gdal_dashes PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The neighbours' names, the coordinate labels and the minute marks measured with GDAL and GEOS.
add_test(NAME generate.gdal_marks
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/gdal_marks_check.py $<TARGET_FILE:generate_tool>)
set_tests_properties(generate.gdal_marks PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
