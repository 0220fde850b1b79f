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

# vxk render as a user runs it: pictures of generated sets and of a complete set that GDAL wrote, read
# back with GDAL (PNG) and an XML parser (SVG).
add_test(NAME generate.vxk_render
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/vxk_render_test.py)
set_tests_properties(generate.vxk_render PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# vxk generate for many sheets at once: folders by designation, a failing sheet among good ones.
add_test(NAME generate.vxk_generate_many
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/vxk_generate_many_test.py)
set_tests_properties(generate.vxk_generate_many PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The README's run command (scripts/demo.sh): its picture read with GDAL, its reprojected sample against
# ogr2ogr.
add_test(NAME generate.demo
  COMMAND ${VXK_GDAL_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/demo_test.py ${CMAKE_BINARY_DIR})
set_tests_properties(generate.demo PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

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
