# The Python package's tests, run by pytest inside a virtual environment of this build: the library of
# this build is installed into the environment's prefix (where the package looks for it) and the
# package is installed from a copy of python/ by pip, without network.
set(vxk_venv ${CMAKE_BINARY_DIR}/python-venv)
add_test(NAME python.venv
  COMMAND bash ${CMAKE_CURRENT_LIST_DIR}/make_venv.sh ${CMAKE_BINARY_DIR} ${vxk_venv} ${CMAKE_CURRENT_LIST_DIR})
set_tests_properties(python.venv PROPERTIES FIXTURES_SETUP python_venv TIMEOUT 300)

set(vxk_pytest_env ${VXK_TEST_ENV} PYTHONDONTWRITEBYTECODE=1)
if(VXK_SANITIZE)
  # Python itself is not instrumented: the sanitizer's runtime has to be loaded before anything else,
  # and with it the C++ runtime, whose exceptions (PROJ throws inside) the sanitizer intercepts. Its
  # leak report would be about the interpreter's own memory, so leaks are checked by the package's own
  # test of handles and heap instead.
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libasan.so
                  OUTPUT_VARIABLE vxk_libasan OUTPUT_STRIP_TRAILING_WHITESPACE)
  list(APPEND vxk_pytest_env "LD_PRELOAD=${vxk_libasan} libstdc++.so.6"
       ASAN_OPTIONS=detect_leaks=0:abort_on_error=1:strict_string_checks=1)
endif()
add_test(NAME python.pytest
  COMMAND ${vxk_venv}/bin/python -m pytest -q -p no:cacheprovider ${CMAKE_CURRENT_LIST_DIR}/tests)
set_tests_properties(python.pytest PROPERTIES
  FIXTURES_REQUIRED python_venv ENVIRONMENT "${vxk_pytest_env}" TIMEOUT 900)
