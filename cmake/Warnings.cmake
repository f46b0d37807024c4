# The warnings that every target of the project is compiled with.
add_library(blankwell_warnings INTERFACE)
target_compile_options(blankwell_warnings INTERFACE
    -Wall -Wextra -Wpedantic   # the base set
    -Wshadow                   # a name that hides another is read wrongly sooner or later
    -Wconversion               # silent narrowing of sizes and offsets
    -Wsign-conversion          # sizes from system calls are signed, lengths are not
    -Wnon-virtual-dtor         # ports are deleted through their base
    -Woverloaded-virtual       # an adapter that misses a port's signature
    -Wold-style-cast           # casts that say what they do
    -Wnull-dereference         # paths that the optimiser proves wrong
    -Wimplicit-fallthrough     # a forgotten break
    -Wno-missing-field-initializers # designated initialisers leave the rest at its default
    $<$<BOOL:${BLANKWELL_WERROR}>:-Werror>
)
# GCC 12's optimiser takes libstdc++'s own moved-from optionals and variants for uninitialised.
target_compile_options(blankwell_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
)
