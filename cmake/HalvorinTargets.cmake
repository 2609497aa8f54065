# A folder is a target: what stands in the folder is what the target builds.

# halvorin_add_folder(NAME [LINKS target...] [PRIVATE_LINKS target...] [QT])
#   A static library of every .cpp and .h in the current folder, but for the files of other platforms. The
#   shared library is made of the objects of all folders; unit tests link the folders' targets directly.
function(halvorin_add_folder name)
    cmake_parse_arguments(FOLDER "QT" "" "LINKS;PRIVATE_LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp)
    file(GLOB headers CONFIGURE_DEPENDS *.h)
    if(WIN32)
        list(FILTER sources EXCLUDE REGEX "_(linux|posix)\\.cpp$")
    else()
        list(FILTER sources EXCLUDE REGEX "_windows\\.cpp$")
    endif()
    if(NOT sources)
        add_library(${name} INTERFACE)
        target_link_libraries(${name} INTERFACE ${FOLDER_LINKS})
        return()
    endif()
    add_library(${name} STATIC ${sources})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${CMAKE_SOURCE_DIR}/src FILES ${headers})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX VERIFY_INTERFACE_HEADER_SETS ON)
    target_link_libraries(${name} PUBLIC ${FOLDER_LINKS} PRIVATE ${FOLDER_PRIVATE_LINKS} halvorin-warnings)
    if(FOLDER_QT)
        target_link_libraries(${name} PRIVATE halvorin-qt-rules)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
    endif()
    set(libraries ${FOLDER_LINKS} ${FOLDER_PRIVATE_LINKS})
    list(FILTER libraries EXCLUDE REGEX "^halvorin-")
    set_property(GLOBAL APPEND PROPERTY HALVORIN_FOLDERS ${name})
    set_property(GLOBAL APPEND PROPERTY HALVORIN_FOLDER_LIBRARIES ${libraries})
endfunction()

# halvorin_header_of_texts(TARGET HEADER NAME=TEXT...)
#   A header with a macro a text, for the sources of a target. Not definitions of the target: with those ccache takes
#   every source of it anew for each folder that the project stands in.
function(halvorin_header_of_texts target header)
    set(content)
    foreach(text IN LISTS ARGN)
        string(REGEX MATCH "^([A-Z_]+)=(.*)$" ignored "${text}")
        string(APPEND content "#define ${CMAKE_MATCH_1} \"${CMAKE_MATCH_2}\"\n")
    endforeach()
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}-texts)
    file(GENERATE OUTPUT ${folder}/${header} CONTENT "${content}")
    get_target_property(type ${target} TYPE)
    if(type STREQUAL INTERFACE_LIBRARY)
        target_include_directories(${target} INTERFACE ${folder})
    else()
        target_include_directories(${target} PRIVATE ${folder})
    endif()
endfunction()

# halvorin_add_tests(NAME LABEL label [LINKS target...] [QT])
#   A GoogleTest program of every .cpp in the current folder, each case a ctest of its own. "testfolders.h" says
#   where the folder and the project are, as TEST_SOURCE_FOLDER and PROJECT_FOLDER.
function(halvorin_add_tests name)
    cmake_parse_arguments(TESTS "QT" "LABEL" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp)
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    target_link_libraries(${name} PRIVATE
        ${TESTS_LINKS} halvorin-test-support GTest::gmock GTest::gtest_main halvorin-warnings)
    # in a header, not among the definitions: what does not include it is compiled alike wherever it stands
    file(CONFIGURE OUTPUT testfolders.h CONTENT
"#define TEST_SOURCE_FOLDER \"${CMAKE_CURRENT_SOURCE_DIR}\"\n#define PROJECT_FOLDER \"${CMAKE_SOURCE_DIR}\"\n" @ONLY)
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
    # by name, not by path: the path of a header of ours would keep ccache from sharing between clones
    target_precompile_headers(${name} PRIVATE <gmock/gmock.h> <gtest/gtest.h>)
    if(TESTS_QT)
        target_link_libraries(${name} PRIVATE halvorin-qt-rules)
        set_target_properties(${name} PROPERTIES AUTOMOC ON)
    endif()
    gtest_discover_tests(${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60
        PROPERTIES LABELS ${TESTS_LABEL} TIMEOUT 120)
endfunction()
