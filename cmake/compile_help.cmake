# Compiles Tamrix.hhp with chmcmd in the current folder; a failure is only
# reported, so the program still builds without the compiled help file.
execute_process(COMMAND ${CHMCMD} Tamrix.hhp
                RESULT_VARIABLE result OUTPUT_FILE chmcmd.log ERROR_FILE chmcmd.log)
if(NOT result EQUAL 0 OR NOT EXISTS Tamrix.chm)
    message(WARNING "chmcmd could not compile Tamrix.hhp (see ${CMAKE_CURRENT_BINARY_DIR}/chmcmd.log)")
endif()
