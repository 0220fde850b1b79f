# The vxk proj command, run as a user runs it: output, exit status and errors.
add_test(NAME proj4.vxk_proj
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/vxk_proj_test.py)
set_tests_properties(proj4.vxk_proj PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The GDAL form of every catalogue entry and of hand-written Gauss-Kruger, UTM and Lambert systems:
# imported by GDAL's osr, and points through GDAL with it against cs2cs with the original text. GDAL's
# bindings come with Debian's own interpreter (python3-gdal), VXK_SYSTEM_PYTHON.
add_test(NAME proj4.gdal_form_check
  COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/gdal_form_check.py)
set_tests_properties(proj4.gdal_form_check PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}" TIMEOUT 900)
