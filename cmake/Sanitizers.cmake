# What a sanitized build adds; empty otherwise.
add_library(blankwell_sanitizers INTERFACE)
if(BLANKWELL_SANITIZE)
    set(flags
        -fsanitize=address,undefined
        -fno-sanitize-recover=all   # a finding ends the test, so it cannot be overlooked
        -fno-omit-frame-pointer     # readable stacks
    )
    target_compile_options(blankwell_sanitizers INTERFACE ${flags})
    target_link_options(blankwell_sanitizers INTERFACE ${flags})
endif()
