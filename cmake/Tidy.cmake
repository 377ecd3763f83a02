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

# The files of a target that its compile commands name, and their objects: its sources, or those that
# CMake makes of several sources each.
function(tamblin_compiled_files target files objects)
    get_target_property(folder ${target} BINARY_DIR)
    set(folder ${folder}/CMakeFiles/${target}.dir)
    get_target_property(compiled ${target} SOURCES)
    list(FILTER compiled INCLUDE REGEX "\\.cpp$")
    get_target_property(unity ${target} UNITY_BUILD)
    if(unity)
        list(LENGTH compiled number)
        get_target_property(batch ${target} UNITY_BUILD_BATCH_SIZE)
        math(EXPR last "(${number} - 1) / ${batch}")
        set(compiled)
        foreach(index RANGE ${last})
            list(APPEND compiled ${folder}/Unity/unity_${index}_cxx.cxx)
        endforeach()
        set(base ${folder})
    else()
        get_target_property(base ${target} SOURCE_DIR)
    endif()
    set(made)
    set(read)
    foreach(file ${compiled})
        cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${base})
        list(APPEND read ${file})
        cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${base} OUTPUT_VARIABLE name)
        list(APPEND made ${folder}/${name}${CMAKE_CXX_OUTPUT_EXTENSION})
    endforeach()
    set(${files} ${read} PARENT_SCOPE)
    set(${objects} ${made} PARENT_SCOPE)
endfunction()

# tamblin_tidy(NAME TARGET...) adds the test NAME over the sources of these targets.
# Fuzz targets and benchmarks are made of the same sources, which need no second reading.
function(tamblin_tidy name)
    if(TAMBLIN_FUZZ OR TAMBLIN_BENCH)
        return()
    endif()
    foreach(target ${ARGN})
        tamblin_compiled_files(${target} files objects)
        foreach(file object IN ZIP_LISTS files objects)
            set(stamp ${object}.read)
            add_custom_command(OUTPUT ${stamp}
                COMMAND clang-tidy --quiet -p ${CMAKE_BINARY_DIR} ${tidyFlags} ${file}
                COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
                DEPENDS ${CMAKE_SOURCE_DIR}/.clang-tidy ${object}
                COMMENT "Reading ${file} with clang-tidy" VERBATIM)
            list(APPEND stamps ${stamp})
        endforeach()
    endforeach()
    add_custom_target(${name} DEPENDS ${stamps})
    tamblin_add_test(${name} style ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target ${name} -- -k 0)
    tamblin_test_computes(${name})
    set_tests_properties(${name} PROPERTIES COST 200)
endfunction()
