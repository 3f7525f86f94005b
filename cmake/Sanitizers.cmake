# Instruments the whole tree, because instrumented and plain objects cannot be mixed in one process.
if(COMMON_UI_QT_SANITIZERS)
    if(MSVC)
        message(FATAL_ERROR "COMMON_UI_QT_SANITIZERS is for GCC and clang")
    endif()
    set(sanitizer_flags -fsanitize=${COMMON_UI_QT_SANITIZERS} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    add_compile_options(${sanitizer_flags})
    add_link_options(${sanitizer_flags})
endif()
