# The legacy C++ interface of netCDF, with the C library below it. Gives the target NetcdfCxx::NetcdfCxx.

find_path(NETCDF_CXX_INCLUDE_DIR netcdfcpp.h)
find_library(NETCDF_CXX_LIBRARY NAMES netcdf_c++)
find_library(NETCDF_LIBRARY NAMES netcdf)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(NetcdfCxx REQUIRED_VARS NETCDF_CXX_LIBRARY NETCDF_LIBRARY NETCDF_CXX_INCLUDE_DIR)

if(NetcdfCxx_FOUND AND NOT TARGET NetcdfCxx::NetcdfCxx)
  add_library(NetcdfCxx::NetcdfCxx UNKNOWN IMPORTED)
  set_target_properties(NetcdfCxx::NetcdfCxx PROPERTIES
    IMPORTED_LOCATION "${NETCDF_CXX_LIBRARY}"
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${NETCDF_CXX_INCLUDE_DIR}"
    INTERFACE_INCLUDE_DIRECTORIES "${NETCDF_CXX_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES "${NETCDF_LIBRARY}")
endif()
mark_as_advanced(NETCDF_CXX_INCLUDE_DIR NETCDF_CXX_LIBRARY NETCDF_LIBRARY)
