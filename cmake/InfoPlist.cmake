set(BLANKWELL_BUILD_NUMBER 1 CACHE STRING "The bundle's build number, CFBundleVersion")
set(BLANKWELL_FEED_URL "" CACHE STRING "Where updates are announced; empty: the build never updates itself")
set(BLANKWELL_PUBLIC_ED_KEY "" CACHE STRING "The Ed25519 key, in base64, that updates are signed with")

# Sets OUTPUT to TEXT as XML has to have it.
function(blankwell_escape_xml output text)
    string(REPLACE "&" "&amp;" text "${text}")
    string(REPLACE "<" "&lt;" text "${text}")
    string(REPLACE ">" "&gt;" text "${text}")
    set(${output} "${text}" PARENT_SCOPE)
endfunction()

# Appends the entry KEY to OUTPUT, unless VALUE is empty.
function(blankwell_append_info output key value)
    if(NOT value STREQUAL "")
        blankwell_escape_xml(value "${value}")
        set(${output} "${${output}}\n    <key>${key}</key>\n    <string>${value}</string>" PARENT_SCOPE)
    endif()
endfunction()

# Writes the bundle's Info.plist to FILE, from the variables above.
function(blankwell_write_info_plist file)
    set(entries "")
    blankwell_append_info(entries CFBundleShortVersionString "${PROJECT_VERSION}")
    blankwell_append_info(entries CFBundleVersion "${BLANKWELL_BUILD_NUMBER}")
    blankwell_append_info(entries SUFeedURL "${BLANKWELL_FEED_URL}")
    blankwell_append_info(entries SUPublicEDKey "${BLANKWELL_PUBLIC_ED_KEY}")
    configure_file(${PROJECT_SOURCE_DIR}/resources/Info.plist.in ${file} @ONLY)
endfunction()
