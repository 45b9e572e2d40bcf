# Read by cpack for each kind of package.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
  unset(CPACK_PACKAGE_DESCRIPTION_SUMMARY)  # each of the two has its own
else()
  set(CPACK_PACKAGING_INSTALL_PREFIX "")  # an archive is unpacked anywhere
endif()
