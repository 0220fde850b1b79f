# The vxk labels command, run as a user runs it, its numbers checked against cs2cs.
add_test(NAME reproj.vxk_labels
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_LIST_DIR}/vxk_labels_check.py)
set_tests_properties(reproj.vxk_labels PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
