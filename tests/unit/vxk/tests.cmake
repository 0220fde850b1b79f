# The vxk program's own parts that are not commands: the safe output of result sets is compiled into
# its test program from tools/vxk/, as the program compiles it.
target_sources(unit_vxk PRIVATE ${PROJECT_SOURCE_DIR}/tools/vxk/safe_output.cpp)
target_include_directories(unit_vxk PRIVATE ${PROJECT_SOURCE_DIR}/tools/vxk)
