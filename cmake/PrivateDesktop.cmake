# What starts programs on a desktop of their own, types at them and looks at them: the desktop tests
# and the benchmarks share it.
include_guard(GLOBAL)

find_package(PkgConfig REQUIRED)
pkg_check_modules(XTEST REQUIRED IMPORTED_TARGET GLOBAL xcb xcb-xkb xcb-xtest)

set(folder ${PROJECT_SOURCE_DIR}/tests/desktop)
add_library(blankwell_private_desktop STATIC
    ${folder}/AccountHome.cpp
    ${folder}/Desktop.cpp
    ${folder}/OwnDesktop.cpp
    ${folder}/Program.cpp
    ${folder}/ServedApplication.cpp
    ${folder}/TestKeyboard.cpp
)
target_include_directories(blankwell_private_desktop PUBLIC ${PROJECT_SOURCE_DIR}/tests)
target_compile_definitions(blankwell_private_desktop
    PRIVATE BLANKWELL_WITH_DESKTOP="${folder}/with-desktop")
target_link_libraries(blankwell_private_desktop
    PUBLIC blankwell_linux_services PkgConfig::XTEST
    PRIVATE blankwell_warnings
)
