# Projection files checked against GDAL: the .prj that vx_pj4_export_esri makes is read back by
# ogrinfo as the coordinate system of its PROJ string. The check needs the Python that carries
# GDAL's bindings (python3-gdal), which is Debian's own.
add_executable(pj4_prj_tool ${CMAKE_CURRENT_LIST_DIR}/pj4_prj_tool.cpp)
target_include_directories(pj4_prj_tool PRIVATE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(pj4_prj_tool PRIVATE vxk_proj4_shp)
add_test(NAME services.pj4_prj_ogrinfo
  COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/pj4_prj_ogrinfo.py $<TARGET_FILE:pj4_prj_tool>)
set_tests_properties(services.pj4_prj_ogrinfo PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")

# The hosts' shape file reader on files that GDAL wrote, compared with what GDAL reads from them.
add_executable(shp_reader_tool ${CMAKE_CURRENT_LIST_DIR}/shp_reader_tool.c)
target_include_directories(shp_reader_tool PRIVATE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(shp_reader_tool PRIVATE vxk_proj4_shp)
add_test(NAME services.shp_reader_gdal
  COMMAND ${VXK_SYSTEM_PYTHON} ${CMAKE_CURRENT_LIST_DIR}/shp_reader_gdal.py $<TARGET_FILE:shp_reader_tool>)
set_tests_properties(services.shp_reader_gdal PROPERTIES ENVIRONMENT "${VXK_TEST_ENV}")
