# Helpers shared by the libraries, the programs and the tests.

# Every compiled target of the project gets the same warnings.
function(panelkit_warnings target)
    target_compile_options(${target} PRIVATE ${PANELKIT_WARNINGS})
endfunction()

# The sources of a library: every .cpp below the given folders.
function(panelkit_collect_sources out)
    set(files "")
    foreach(dir IN LISTS ARGN)
        file(GLOB_RECURSE found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*.cpp)
        list(APPEND files ${found})
    endforeach()
    set(${out} ${files} PARENT_SCOPE)
endfunction()
