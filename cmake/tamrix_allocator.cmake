# The executables' memory allocator. A conversion makes and frees several small
# strings for every link of every topic, on two threads; glibc's allocator spends
# about a fifth of the caller's time on that, jemalloc (Debian: libjemalloc-dev)
# much less. It is linked in whole, so the installed program needs no library of
# its own; without it, or under the sanitizers (which bring their own allocator),
# the system's allocator serves.
option(TAMRIX_JEMALLOC "Link the programs with jemalloc when it is found" ON)
set(TAMRIX_JEMALLOC_FOUND OFF)
if(TAMRIX_JEMALLOC AND NOT TAMRIX_SANITIZE AND NOT WIN32)
    find_library(TAMRIX_JEMALLOC_LIBRARY NAMES libjemalloc_pic.a libjemalloc.a)
    if(TAMRIX_JEMALLOC_LIBRARY)
        set(TAMRIX_JEMALLOC_FOUND ON)
        find_package(Threads REQUIRED)
    else()
        message(STATUS "jemalloc not found (libjemalloc-dev): the programs use the system's allocator")
    endif()
endif()

# Links `target` (an executable) with the allocator, when there is one.
function(tamrix_use_allocator target)
    if(TAMRIX_JEMALLOC_FOUND)
        target_link_libraries(${target} PRIVATE
            "$<LINK_LIBRARY:WHOLE_ARCHIVE,${TAMRIX_JEMALLOC_LIBRARY}>" Threads::Threads
            ${CMAKE_DL_LIBS})
    endif()
endfunction()
