# Cross-checks of the planar algorithms and numerics against independent tools: algo_probe runs our
# solvers, chord simplification and fast inclusion on inputs the scripts make; numpy_check.py compares
# the solvers with numpy.linalg, geos_check.py the simplification and the inclusion with GEOS (through
# GDAL's Python binding), both run on the system's interpreter.
add_executable(algo_probe ${CMAKE_CURRENT_LIST_DIR}/algo_probe.cpp)
target_link_libraries(algo_probe PRIVATE vxk_proj4_shp_static)

add_test(NAME algo.numpy_check
  COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/numpy_check.py
          $<TARGET_FILE:algo_probe> ${VXK_TEST_TMP_DIR}/algo_numpy_check)
set_tests_properties(algo.numpy_check PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The sanitizer build checks fewer and smaller cases against GEOS.
set(vxk_geos_size "")
if(VXK_SANITIZE)
  set(vxk_geos_size --small)
endif()
add_test(NAME algo.geos_check
  COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/geos_check.py
          $<TARGET_FILE:algo_probe> ${VXK_TEST_TMP_DIR}/algo_geos_check ${vxk_geos_size})
set_tests_properties(algo.geos_check PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
