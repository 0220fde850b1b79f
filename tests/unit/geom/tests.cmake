# Cross-checks of the polygon division, the inside points and the affine mappings against GDAL (whose
# geometry is GEOS) and numpy: geom_probe writes and computes through our classes, geom_check.py reads
# the files with GDAL and compares. GDAL's bindings come with the system's Python (python3-gdal).
find_program(VXK_SYSTEM_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(NOT VXK_SYSTEM_PYTHON)
  set(VXK_SYSTEM_PYTHON ${Python3_EXECUTABLE})
endif()
add_executable(geom_probe ${CMAKE_CURRENT_LIST_DIR}/geom_probe.cpp)
target_link_libraries(geom_probe PRIVATE vxk_proj4_shp_static)

foreach(check IN ITEMS divide refpnt real_refpnt affine)
  add_test(NAME geom.gdal_${check}
    COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/geom_check.py ${check}
            $<TARGET_FILE:geom_probe> ${VXK_TEST_TMP_DIR}/geom_${check})
  set_tests_properties(geom.gdal_${check} PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
endforeach()
