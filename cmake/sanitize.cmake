# AddressSanitizer and UndefinedBehaviorSanitizer for the whole tree: the library, tests and tools.
set(VXK_SANITIZER_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
add_compile_options(${VXK_SANITIZER_FLAGS})
add_link_options(${VXK_SANITIZER_FLAGS})
