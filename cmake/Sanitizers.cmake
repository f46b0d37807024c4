# What a sanitized build adds, and what it takes away again from tests; both empty otherwise.
add_library(blankwell_sanitizers INTERFACE)
add_library(blankwell_test_sanitizers INTERFACE)
if(BLANKWELL_SANITIZE)
    set(flags
        -fsanitize=address,undefined
        -fno-sanitize-recover=all   # a finding ends the test, so it cannot be overlooked
        -fno-omit-frame-pointer     # readable stacks
        -g1                         # with lines, and without the variables that make compiling slower
    )
    target_compile_options(blankwell_sanitizers INTERFACE ${flags})
    target_link_options(blankwell_sanitizers INTERFACE ${flags})
    # In the templates of GoogleMock they take as long as all the rest of compiling a test. It counts as
    # the last of the options, so whoever links this names it behind what brings the sanitizers.
    target_compile_options(blankwell_test_sanitizers INTERFACE -fno-sanitize=undefined)
endif()
