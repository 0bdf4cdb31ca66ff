# Qwt for Qt 5, whose headers and library every distribution puts elsewhere. Gives the target Qwt::Qwt.

find_path(QWT_INCLUDE_DIR qwt_plot.h PATH_SUFFIXES qwt qt5/qwt qwt-qt5 qwt6-qt5)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt6-qt5 qwt)

if(QWT_INCLUDE_DIR AND EXISTS "${QWT_INCLUDE_DIR}/qwt_global.h")
  file(STRINGS "${QWT_INCLUDE_DIR}/qwt_global.h" _qwt_version REGEX "define QWT_VERSION_STR")
  string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" QWT_VERSION "${_qwt_version}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR VERSION_VAR QWT_VERSION)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
  add_library(Qwt::Qwt UNKNOWN IMPORTED)
  set_target_properties(Qwt::Qwt PROPERTIES
    IMPORTED_LOCATION "${QWT_LIBRARY}"
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}"
    INTERFACE_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES "Qt5::Widgets;Qt5::PrintSupport;Qt5::Svg")
endif()
mark_as_advanced(QWT_INCLUDE_DIR QWT_LIBRARY)
