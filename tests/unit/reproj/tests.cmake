# The vxk labels command, run as a user runs it, its numbers checked against cs2cs.
add_test(NAME reproj.vxk_labels
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/vxk_labels_check.py)
set_tests_properties(reproj.vxk_labels PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The vxk reproject command: arguments, messages, exit status, destination folder, progress, .prj.
add_test(NAME reproj.vxk_reproject
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/vxk_reproject_test.py)
set_tests_properties(reproj.vxk_reproject PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# Checks of shape file reprojection against GDAL (ogr2ogr, ogrinfo and GDAL's Python bindings).
# GDAL's bindings come with the system's Python (python3-gdal), which need not be the first python3 on
# the PATH, so the interpreter is chosen by whether it can import them.
set(vxk_gdal_python "")
foreach(candidate IN ITEMS ${Python3_EXECUTABLE} /usr/bin/python3)
  execute_process(COMMAND ${candidate} -c "import osgeo.ogr"
                  RESULT_VARIABLE vxk_no_gdal OUTPUT_QUIET ERROR_QUIET)
  if(vxk_no_gdal EQUAL 0)
    set(vxk_gdal_python ${candidate})
    break()
  endif()
endforeach()

if(NOT vxk_gdal_python)
  message(WARNING "No Python with GDAL's bindings (python3-gdal): the ogr2ogr comparisons are not run")
  return()
endif()

set(vxk_ogr_check ${CMAKE_CURRENT_LIST_DIR}/ogr_check.py)

# The checker itself: GDAL's own reprojection must pass it, and results with one vertex moved by 2 mm,
# one height changed or one record lost must not.
add_test(NAME reproj.ogr_check_self_test
  COMMAND ${vxk_gdal_python} ${vxk_ogr_check} self-test ${VXK_TEST_TMP_DIR}/ogr_check_self_test)
set_tests_properties(reproj.ogr_check_self_test PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# Our reprojection against ogr2ogr: GDAL-made samples (PointM, PolygonZ, multipatch, polygons partly
# outside a projection's domain, ...) through `vxk reproject`, then our own results back again.
add_test(NAME reproj.ogr2ogr_compare
  COMMAND ${vxk_gdal_python} ${vxk_ogr_check} check-vxk $<TARGET_FILE:vxk>
          ${VXK_TEST_TMP_DIR}/ogr2ogr_compare)
set_tests_properties(reproj.ogr2ogr_compare PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# vxk reproject with systems in every form (EPSG codes, WKT, PROJJSON, .prj files, none given) against
# cs2cs to 1 mm, its warnings, --verbose, measures, counts and the progress bar on a terminal.
add_test(NAME reproj.vxk_reproject_systems
  COMMAND ${vxk_gdal_python} ${CMAKE_CURRENT_LIST_DIR}/vxk_reproject_systems_check.py)
set_tests_properties(reproj.vxk_reproject_systems PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
