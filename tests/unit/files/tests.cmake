# Cross-checks of our shape and table files against GDAL, an independent reader and writer:
# gdal_probe writes and reads through our classes, gdal_check.py drives it and GDAL's Python binding.
# The binding comes from Debian (python3-gdal), so the check runs on the system's interpreter.
add_executable(gdal_probe ${CMAKE_CURRENT_LIST_DIR}/gdal_probe.cpp)
target_link_libraries(gdal_probe PRIVATE vxk_proj4_shp_static)
add_test(NAME files.gdal_check
  COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/gdal_check.py
          $<TARGET_FILE:gdal_probe> ${VXK_TEST_TMP_DIR}/files_gdal_check)
set_tests_properties(files.gdal_check PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
