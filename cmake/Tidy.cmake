# clang-tidy as a test. A file is read again only when it was compiled again since: when it, a header
# or a flag has changed.

# Cross builds are read for their target, with the headers of their libraries; those of the compiler's
# built-in functions are clang's own.
set(tidyFlags)
if(CMAKE_CROSSCOMPILING)
    set(tidyFlags --extra-arg=--target=x86_64-w64-mingw32)
    set(folders ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
    list(FILTER folders EXCLUDE REGEX "/lib/gcc/[^+]*$")
    foreach(folder ${folders})
        list(APPEND tidyFlags --extra-arg=-isystem${folder})
    endforeach()
endif()

# tamblin_tidy(TARGET...) adds the test NAME over the sources of these targets of this folder.
# Fuzz targets and benchmarks are made of the same sources, which need no second reading.
function(tamblin_tidy name)
    if(TAMBLIN_FUZZ OR TAMBLIN_BENCH)
        return()
    endif()
    foreach(target ${ARGN})
        get_target_property(sources ${target} SOURCES)
        list(FILTER sources INCLUDE REGEX "\\.cpp$")
        foreach(source ${sources})
            cmake_path(ABSOLUTE_PATH source)
            cmake_path(RELATIVE_PATH source OUTPUT_VARIABLE file)
            set(stamp ${CMAKE_CURRENT_BINARY_DIR}/tidy/${file}.passed)
            get_filename_component(folder ${stamp} DIRECTORY)
            file(MAKE_DIRECTORY ${folder})
            add_custom_command(OUTPUT ${stamp}
                COMMAND clang-tidy --quiet -p ${CMAKE_BINARY_DIR} ${tidyFlags} ${CMAKE_CURRENT_SOURCE_DIR}/${file}
                COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
                DEPENDS ${CMAKE_SOURCE_DIR}/.clang-tidy
                        ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}.dir/${file}${CMAKE_CXX_OUTPUT_EXTENSION}
                COMMENT "Reading ${file} with clang-tidy" VERBATIM)
            list(APPEND stamps ${stamp})
        endforeach()
    endforeach()
    add_custom_target(${name} DEPENDS ${stamps})
    tamblin_add_test(${name} style ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target ${name} -- -k 0)
    tamblin_test_computes(${name})
    set_tests_properties(${name} PROPERTIES COST 200)
endfunction()
