set(BLANKWELL_SYMBOL_FOLDER /usr/share/bootstrap-icons/svg CACHE PATH
    "Where the drawings of the symbols are: the SVG files of Bootstrap Icons")

# Puts the drawings that TABLE names into the resources of TARGET, each as :/symbols/SYMBOL.svg. A
# line of the table is a symbol's name, a tab, and the name of its file without the suffix.
function(blankwell_add_symbols target table)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})
    file(STRINGS ${table} lines)
    set(files "")
    foreach(line IN LISTS lines)
        string(REPLACE "\t" ";" fields "${line}")
        list(GET fields 0 symbol)
        list(GET fields 1 name)
        set(file ${BLANKWELL_SYMBOL_FOLDER}/${name}.svg)
        if(NOT EXISTS ${file})
            message(FATAL_ERROR "no drawing of the symbol ${symbol}: ${file} is missing")
        endif()
        set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${symbol}.svg)
        list(APPEND files ${file})
    endforeach()
    qt_add_resources(${target} symbols PREFIX /symbols FILES ${files})
endfunction()
