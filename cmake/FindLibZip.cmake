# The zip library as LibZip::LibZip. Its own package file asks for command-line tools that Debian keeps in
# packages apart, which nobody needs who only links it.
find_path(LibZip_INCLUDE_DIR zip.h)
find_library(LibZip_LIBRARY zip)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibZip REQUIRED_VARS LibZip_LIBRARY LibZip_INCLUDE_DIR)
if(LibZip_FOUND AND NOT TARGET LibZip::LibZip)
    add_library(LibZip::LibZip UNKNOWN IMPORTED)
    set_target_properties(LibZip::LibZip PROPERTIES
        IMPORTED_LOCATION "${LibZip_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${LibZip_INCLUDE_DIR}")
endif()
mark_as_advanced(LibZip_INCLUDE_DIR LibZip_LIBRARY)
