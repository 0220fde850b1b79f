# The project's scripts, run with stand-ins for the programs they drive: the test command must build
# with tests and fail when none ran; the fuzz campaign must run every target from its seeds.
add_test(NAME scripts.test_sh
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/scripts_check.py test-sh ${PROJECT_SOURCE_DIR}
          ${VXK_TEST_TMP_DIR}/scripts_test_sh)
add_test(NAME scripts.fuzz_run_sh
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/scripts_check.py fuzz-run-sh ${PROJECT_SOURCE_DIR}
          ${VXK_TEST_TMP_DIR}/scripts_fuzz_run_sh)
