# Finds the Loki library, which ships no CMake package of its own, and provides Loki::Loki.
# Installed beside the Panelkit package so that its consumers find Loki the same way.

find_path(Loki_INCLUDE_DIR NAMES loki/Singleton.h)
find_library(Loki_LIBRARY NAMES loki)
mark_as_advanced(Loki_INCLUDE_DIR Loki_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Loki REQUIRED_VARS Loki_LIBRARY Loki_INCLUDE_DIR)

if(Loki_FOUND AND NOT TARGET Loki::Loki)
    add_library(Loki::Loki UNKNOWN IMPORTED)
    set_target_properties(Loki::Loki PROPERTIES
        IMPORTED_LOCATION "${Loki_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Loki_INCLUDE_DIR}")
endif()
