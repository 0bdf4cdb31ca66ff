# The Debian package: `cpack -G DEB` in the build folder.

set(CPACK_PACKAGE_NAME tarvo)
set(CPACK_PACKAGE_VENDOR "The Tarvo developers")
set(CPACK_PACKAGE_CONTACT "The Tarvo developers <tarvo@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "quality control of dropsonde and radiosonde soundings")
set(CPACK_PACKAGE_DESCRIPTION
"Tarvo opens raw dropsonde and radiosonde files, keeps their data, runs a
sequence of quality control steps, derives the levels and codes the WMO
TEMP and TEMP DROP messages and BUFR.
.
It brings the desktop workbench tarvo and the batch tool tarvo-batch.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ckermit, lrzsz, xdg-utils")

include(CPack)
