# The layers of the program: one library for the files that a folder lists. Who may use whom is said by
# the links between them, and the compiler holds it: a header is found only through the layer it
# belongs to, by a link in LAYER_HEADERS, so an include of a layer that is not used does not build.
set(LAYER_HEADERS ${CMAKE_BINARY_DIR}/layers)
file(REMOVE_RECURSE ${LAYER_HEADERS})

# tamblin_layer(NAME USES TARGET... FILES FILE...): the files are those of the current folder.
function(tamblin_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 layer "" "" "USES;FILES")
    add_library(${name} STATIC)
    set_target_properties(${name} PROPERTIES
        UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
    target_link_libraries(${name} PUBLIC tamblin_options ${layer_USES})
    target_include_directories(${name} PUBLIC ${LAYER_HEADERS}/${name})
    if(WIN32)
        # Only what is used goes into the program, which stays a single small file.
        target_compile_options(${name} PRIVATE -ffunction-sections -fdata-sections)
    endif()
    tamblin_layer_files(${name} ${layer_FILES})
endfunction()

# tamblin_layer_files(NAME FILE...) adds files of the current folder to a layer.
function(tamblin_layer_files name)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}/src
        OUTPUT_VARIABLE folder)
    foreach(file ${ARGN})
        target_sources(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${file})
        if(NOT file MATCHES "\\.cpp$")
            set(link ${LAYER_HEADERS}/${name}/${folder}/${file})
            cmake_path(GET link PARENT_PATH linkFolder)
            file(MAKE_DIRECTORY ${linkFolder})
            file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${file} ${link} SYMBOLIC)
        endif()
    endforeach()
endfunction()
