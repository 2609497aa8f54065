# The library that reads ELF files as LibElf::LibElf.
find_path(LibElf_INCLUDE_DIR gelf.h)
find_library(LibElf_LIBRARY elf)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(LibElf REQUIRED_VARS LibElf_LIBRARY LibElf_INCLUDE_DIR)
if(LibElf_FOUND AND NOT TARGET LibElf::LibElf)
    add_library(LibElf::LibElf UNKNOWN IMPORTED)
    set_target_properties(LibElf::LibElf PROPERTIES
        IMPORTED_LOCATION "${LibElf_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${LibElf_INCLUDE_DIR}")
endif()
mark_as_advanced(LibElf_INCLUDE_DIR LibElf_LIBRARY)
