# The part of libwmf that reads metafiles without drawing them: target WmfLite::WmfLite.
find_path(WmfLite_INCLUDE_DIR libwmf/api.h)
find_library(WmfLite_LIBRARY wmflite)
mark_as_advanced(WmfLite_INCLUDE_DIR WmfLite_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(WmfLite REQUIRED_VARS WmfLite_LIBRARY WmfLite_INCLUDE_DIR)

if(WmfLite_FOUND AND NOT TARGET WmfLite::WmfLite)
    add_library(WmfLite::WmfLite UNKNOWN IMPORTED)
    set_target_properties(WmfLite::WmfLite PROPERTIES
        IMPORTED_LOCATION "${WmfLite_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${WmfLite_INCLUDE_DIR}")
endif()
