# tamrix_layer(NAME [LIBRARY TARGET] [USES LAYER...] SOURCES FILE...)
#
# Makes the static library tamrix_NAME (or TARGET), alias tamrix::NAME, from the
# calling folder's sources. Its include root holds only NAME/, a link to that
# folder, so `#include "NAME/x.h"` reaches it from this layer and from those that
# link it. The lower layers it USES are linked PRIVATE: their roots are visible
# here and nowhere else, and an include of a layer it does not use fails.
function(tamrix_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "LIBRARY" "USES;SOURCES")
    if(NOT arg_LIBRARY)
        set(arg_LIBRARY tamrix_${name})
    endif()
    set(root ${PROJECT_BINARY_DIR}/layers/${name})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
    add_library(${arg_LIBRARY} STATIC ${arg_SOURCES})
    add_library(tamrix::${name} ALIAS ${arg_LIBRARY})
    target_include_directories(${arg_LIBRARY} PUBLIC ${root})
    list(TRANSFORM arg_USES PREPEND tamrix::)
    target_link_libraries(${arg_LIBRARY} PRIVATE ${arg_USES} tamrix_warnings)
endfunction()
