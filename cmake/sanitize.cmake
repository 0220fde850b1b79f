# AddressSanitizer and UndefinedBehaviorSanitizer for the whole tree: the library, tests and tools. A
# fuzz build has them too, so that every program that loads the instrumented library (the fuzz targets,
# vxk, the tests) carries their runtime.
set(VXK_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
add_compile_options(${VXK_SANITIZER_FLAGS})
add_link_options(${VXK_SANITIZER_FLAGS})
# clang links a C program (the C hosts of the tests) without the C++ part of the UndefinedBehaviorSanitizer
# runtime, which the checks of dynamic types (vptr, function) need: with clang they are left out.
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  add_compile_options(-fno-sanitize=vptr,function)
  add_link_options(-fno-sanitize=vptr,function)
endif()
