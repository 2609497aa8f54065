# The library of regular expressions below Qt's, for UTF-16, as PCRE2::utf16.
find_path(PCRE2_INCLUDE_DIR pcre2.h)
find_library(PCRE2_16_LIBRARY pcre2-16)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(PCRE2 REQUIRED_VARS PCRE2_16_LIBRARY PCRE2_INCLUDE_DIR)
if(PCRE2_FOUND AND NOT TARGET PCRE2::utf16)
    add_library(PCRE2::utf16 UNKNOWN IMPORTED)
    set_target_properties(PCRE2::utf16 PROPERTIES
        IMPORTED_LOCATION "${PCRE2_16_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${PCRE2_INCLUDE_DIR}")
endif()
mark_as_advanced(PCRE2_INCLUDE_DIR PCRE2_16_LIBRARY)
