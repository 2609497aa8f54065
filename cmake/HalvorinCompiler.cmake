# Compiler settings that hold for every target of ours.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Kind of build" FORCE)
endif()

# ccache must be told that it may look past precompiled headers' time stamps, and that it does not matter where
# the project stands: one clone may take what another has compiled.
find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=true ${CCACHE_PROGRAM})
endif()

string(FIND "${CMAKE_CXX_FLAGS}" "-fsanitize=" sanitizerPosition)
if(sanitizerPosition GREATER_EQUAL 0)
    set(HALVORIN_SANITIZED ON)
endif()

add_library(halvorin-warnings INTERFACE)
target_compile_options(halvorin-warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${HALVORIN_WARNINGS_AS_ERRORS}>:-Werror>
    # a moved virtual base is moved again by the next base, and is empty then
    $<$<CXX_COMPILER_ID:GNU>:-Werror=virtual-move-assign>
    # GCC 12 sees overlapping copies in std::string where there are none
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
    # with a sanitizer's checks between, GCC no longer sees that the tag of a variant guards its parts
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${HALVORIN_SANITIZED}>>:-Wno-maybe-uninitialized>
    # ccache needs it to see through a precompiled header of GCC
    $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

add_library(halvorin-qt-rules INTERFACE)
target_compile_definitions(halvorin-qt-rules INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)
