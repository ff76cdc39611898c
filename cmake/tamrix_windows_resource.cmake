# tamrix_windows_resource(TARGET DESCRIPTION)
#
# Gives a Windows executable the Tamrix icon and its version information, from
# cmake/tamrix.rc.in. Does nothing on other systems.
function(tamrix_windows_resource target description)
    if(NOT WIN32)
        return()
    endif()
    enable_language(RC)
    set(TAMRIX_RC_NAME ${target})
    set(TAMRIX_RC_FILE ${target}.exe)
    set(TAMRIX_RC_DESCRIPTION ${description})
    set(TAMRIX_RC_ICON ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../data/tamrix.ico)
    set(rc ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${CMAKE_CURRENT_FUNCTION_LIST_DIR}/tamrix.rc.in ${rc} @ONLY)
    target_sources(${target} PRIVATE ${rc})
endfunction()
