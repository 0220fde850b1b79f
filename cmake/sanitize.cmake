# AddressSanitizer and UndefinedBehaviorSanitizer for the whole tree: the library, tests and tools. A
# fuzz build has them too, so that every program that loads the instrumented library (the fuzz targets,
# vxk, the tests) carries their runtime.
set(VXK_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
add_compile_options(${VXK_SANITIZER_FLAGS})
add_link_options(${VXK_SANITIZER_FLAGS})
