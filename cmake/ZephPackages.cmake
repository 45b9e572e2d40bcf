# What `cpack` makes: two .deb packages and a .tar.gz here, a .zip for Windows.
set(CPACK_PACKAGE_NAME "zephdatastructureengine")
set(CPACK_PACKAGE_VENDOR "ZEPHDataStructureEngine developers")
set(CPACK_PACKAGE_CONTACT "ZEPHDataStructureEngine developers <developers@zephdatastructureengine.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR DEB TGZ)
endif()
# What differs between the kinds of packages, and what Debian wants beside the files.
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/packages/kinds.cmake")
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/packages/debian_files.cmake")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/packages/ldconfig_trigger.cmake")
set(CPACK_ZEPH_SOURCE "${PROJECT_SOURCE_DIR}")

# The library alone for programs; everything else for those who write them.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(about "Arrays of doubles with their sorts and searches, buffers and matrices with
index ranges of the caller's, dense linear algebra, float vectors and 4x4
transforms, lists and collections that sort themselves, with the same
results to the last bit on every machine.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "libzephdatastructureengine${PROJECT_VERSION_MAJOR}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "numeric data structures and algorithms - shared library\n${about}\n\nThis package holds the library.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME "libzephdatastructureengine-dev")
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libzephdatastructureengine${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEV_DESCRIPTION "numeric data structures and algorithms - development files\n${about}\n\nThis package holds headers, CMake and pkg-config files, debugger views,\ndocumentation and zeph-selftest.")

include(CPack)
cpack_add_component(Runtime GROUP runtime)
cpack_add_component(Development GROUP dev)
cpack_add_component(Documentation GROUP dev)
