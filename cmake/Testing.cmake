# What CTest runs. Each test has one of the labels unit, windows, system, fuzz and style; one that
# consists of many cases leaves them as JUnit in TAMBLIN_RESULTS.
enable_testing()
set(TAMBLIN_RESULTS ${CMAKE_SOURCE_DIR}/build/results CACHE PATH "Where tests leave JUnit files NAME.xml")
set(TAMBLIN_LZH_SAMPLES "$ENV{TAMBLIN_LZH_SAMPLES}" CACHE PATH "Folder of LZH samples, if there is one")
set(samples ${TAMBLIN_LZH_SAMPLES})
if(NOT samples AND EXISTS ${CMAKE_SOURCE_DIR}/../shared/lzh-samples)
    file(REAL_PATH ${CMAKE_SOURCE_DIR}/../shared/lzh-samples samples)
endif()

# tamblin_add_test(NAME LABEL COMMAND...): only a hang reaches the time limit, also on a busy machine.
function(tamblin_add_test name label)
    add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${CMAKE_SOURCE_DIR})
    set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 3600)
    if(samples)
        set_property(TEST ${name} PROPERTY ENVIRONMENT TAMBLIN_LZH_SAMPLES=${samples})
    endif()
endfunction()

# For tests that keep a processor busy from beginning to end: ./test runs four times as many at a time
# as there are processors, because most wait for windows more than they compute.
function(tamblin_test_computes name)
    set_tests_properties(${name} PROPERTIES PROCESSORS 4)
endfunction()

# GoogleTest as the system has it for the target, else from its source (Debian's for cross builds).
macro(tamblin_find_googletest)
    find_library(TAMBLIN_GMOCK gmock)
    if(TAMBLIN_GMOCK)
        find_package(GTest REQUIRED)
    else()
        find_path(TAMBLIN_GOOGLETEST_SOURCE googlemock/CMakeLists.txt REQUIRED
            PATHS /usr/src/googletest NO_CMAKE_FIND_ROOT_PATH)
        set(INSTALL_GTEST OFF)
        add_subdirectory(${TAMBLIN_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
        target_compile_options(gtest PRIVATE -O0)
        target_compile_options(gmock PRIVATE -O0)
    endif()
endmacro()
