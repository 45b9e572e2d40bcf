# An overlay port for vcpkg, not run here. It builds the tree that it stands in.
get_filename_component(source "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)
string(COMPARE EQUAL "${VCPKG_LIBRARY_LINKAGE}" "dynamic" shared)
vcpkg_cmake_configure(SOURCE_PATH "${source}"
  OPTIONS -DZEPH_SHARED=${shared} -DZEPH_BUILD_TESTS=OFF -DZEPH_BUILD_EXAMPLES=OFF -DZEPH_BUILD_SELFTEST=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(PACKAGE_NAME ZEPHDataStructureEngine CONFIG_PATH lib/cmake/ZEPHDataStructureEngine)
vcpkg_fixup_pkgconfig()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
vcpkg_install_copyright(FILE_LIST "${source}/LICENSE")
