# What goes to an install tree: the programs, the shared libraries, the headers of what they export, what
# find_package(HalvWidgets) reads, and the schemas for editors.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# The parts find each other wherever the tree is put.
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

# halvorin_find_exported_headers(RESULT)
#   The headers in src that export something, and those of ours that they include.
function(halvorin_find_exported_headers result)
    file(GLOB_RECURSE all CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h)
    set(open)
    foreach(header IN LISTS all)
        file(STRINGS ${header} marks REGEX "HALVWIDGETS_EXPORT")
        if(marks)
            list(APPEND open ${header})
        endif()
    endforeach()
    set(found)
    while(open)
        list(POP_FRONT open header)
        if(header IN_LIST found)
            continue()
        endif()
        list(APPEND found ${header})
        file(STRINGS ${header} includes REGEX "^#include \"")
        foreach(line IN LISTS includes)
            string(REGEX REPLACE "^#include \"([^\"]+)\".*" "${CMAKE_SOURCE_DIR}/src/\\1" included "${line}")
            if(EXISTS ${included})
                list(APPEND open ${included})
            endif()
        endforeach()
    endwhile()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${found})
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# halvorin_install()
#   Called when all targets are there.
function(halvorin_install)
    set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/HalvWidgets)
    install(TARGETS HalvWidgets HalvCore HostSupport EXPORT HalvWidgetsTargets
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/HalvWidgets)
    install(TARGETS halvorin)
    install(DIRECTORY ${CMAKE_SOURCE_DIR}/resources/schemas DESTINATION ${CMAKE_INSTALL_DATADIR}/halvorin)
    install(EXPORT HalvWidgetsTargets NAMESPACE HalvWidgets:: DESTINATION ${package_folder})
    configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/HalvWidgetsConfig.cmake.in
        ${CMAKE_BINARY_DIR}/HalvWidgetsConfig.cmake INSTALL_DESTINATION ${package_folder})
    write_basic_package_version_file(${CMAKE_BINARY_DIR}/HalvWidgetsConfigVersion.cmake
        COMPATIBILITY SameMinorVersion)
    install(FILES ${CMAKE_BINARY_DIR}/HalvWidgetsConfig.cmake ${CMAKE_BINARY_DIR}/HalvWidgetsConfigVersion.cmake
        DESTINATION ${package_folder})
endfunction()
