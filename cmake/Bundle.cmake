# The bundle as it is installed: a folder that works wherever it stands, laid out as the build tree is.
set(BLANKWELL_BUNDLE "Blankwell+.app")
set(BLANKWELL_CONTENTS "${BLANKWELL_BUNDLE}/Contents")

# blankwell_add_resources(FILES... [FOLDER NAME]): files of the current source folder go into the
# Resources of the build tree and of the bundle, or into the folder NAME in those.
function(blankwell_add_resources)
    cmake_parse_arguments(ARG "" "FOLDER" "" ${ARGN})
    foreach(file IN LISTS ARG_UNPARSED_ARGUMENTS)
        get_filename_component(name ${file} NAME)
        configure_file(${file} ${PROJECT_BINARY_DIR}/Resources/${ARG_FOLDER}/${name} COPYONLY)
        install(FILES ${file} DESTINATION "${BLANKWELL_CONTENTS}/Resources/${ARG_FOLDER}")
    endforeach()
endfunction()

# blankwell_install_programs(TARGETS...): programs and their modules go into the bundle.
function(blankwell_install_programs)
    install(TARGETS ${ARGN}
        RUNTIME DESTINATION "${BLANKWELL_CONTENTS}/Linux"
        LIBRARY DESTINATION "${BLANKWELL_CONTENTS}/Linux"
    )
endfunction()
