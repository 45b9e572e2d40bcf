# Installation: libraries, headers, the CMake package, the pkg-config file, documentation, packages.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(ZEPH_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ZEPHDataStructureEngine")
set(ZEPH_HEADER_DIR "${CMAKE_INSTALL_INCLUDEDIR}/ZEPHDataStructureEngine")

target_include_directories(ZEPHDataStructureEngine INTERFACE
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

install(TARGETS ZEPHDataStructureEngine EXPORT ZEPHDataStructureEngineTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development)
if(ZEPH_SHARED AND MINGW AND CMAKE_DLLTOOL)
  install(FILES "${PROJECT_BINARY_DIR}/src/ZEPHDataStructureEngine.lib" "${PROJECT_BINARY_DIR}/src/ZEPHDataStructureEngine.def"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development)
endif()
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/" DESTINATION "${ZEPH_HEADER_DIR}"
  COMPONENT Development FILES_MATCHING PATTERN "*.h")

install(EXPORT ZEPHDataStructureEngineTargets NAMESPACE ZEPHDataStructureEngine::
  DESTINATION "${ZEPH_PACKAGE_DIR}" COMPONENT Development)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/ZEPHDataStructureEngineConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/ZEPHDataStructureEngineConfig.cmake" INSTALL_DESTINATION "${ZEPH_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZEPHDataStructureEngineConfigVersion.cmake"
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/ZEPHDataStructureEngineConfig.cmake"
  "${PROJECT_BINARY_DIR}/ZEPHDataStructureEngineConfigVersion.cmake"
  DESTINATION "${ZEPH_PACKAGE_DIR}" COMPONENT Development)

# The pkg-config file finds its prefix from its own place, so a moved installation still works.
file(RELATIVE_PATH ZEPH_PC_TO_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
if(ZEPH_SHARED)
  set(ZEPH_PC_CFLAGS "")
  set(ZEPH_PC_LIBS "")
else()
  set(ZEPH_PC_CFLAGS "-DZEPH_STATIC")
  set(ZEPH_PC_LIBS "-lstdc++ -lm")
endif()
if(ZEPH_PORTABLE_MATH)
  string(APPEND ZEPH_PC_CFLAGS " -DZEPH_PORTABLE_MATH")
endif()
if(ZEPH_HARDENED)
  string(APPEND ZEPH_PC_CFLAGS " -DZEPH_HARDENED")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/ZEPHDataStructureEngine.pc.in"
  "${PROJECT_BINARY_DIR}/ZEPHDataStructureEngine.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/ZEPHDataStructureEngine.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)

# Debugger views: gdb finds the script by the library's own path below its auto-load folder, or is told of the
# one beside the natvis (docs/debugging.md); Visual Studio takes the natvis through the target.
if(NOT WIN32 AND ZEPH_SHARED)
  install(FILES "${PROJECT_SOURCE_DIR}/tools/debugger/zeph_printers.py"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load${CMAKE_INSTALL_FULL_LIBDIR}"
    RENAME "libZEPHDataStructureEngine.so.${PROJECT_VERSION}-gdb.py" COMPONENT Development)
endif()
set(ZEPH_NATVIS_DIR "${CMAKE_INSTALL_DATADIR}/ZEPHDataStructureEngine")
install(FILES
  "${PROJECT_SOURCE_DIR}/tools/debugger/ZEPHDataStructureEngine.natvis"
  "${PROJECT_SOURCE_DIR}/tools/debugger/zeph_printers.py"
  DESTINATION "${ZEPH_NATVIS_DIR}" COMPONENT Development)
target_sources(ZEPHDataStructureEngine INTERFACE
  $<$<CXX_COMPILER_ID:MSVC>:$<INSTALL_INTERFACE:${ZEPH_NATVIS_DIR}/ZEPHDataStructureEngine.natvis>>
  $<$<CXX_COMPILER_ID:MSVC>:$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/tools/debugger/ZEPHDataStructureEngine.natvis>>)

if(MINGW)
  file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/installed")
  # A Windows machine has none of the compiler's runtime libraries.
  foreach(name IN ITEMS libstdc++-6.dll libgcc_s_seh-1.dll libgcc_s_dw2-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${path}")
      # Without the debug information that they carry, which is most of them.
      set(stripped "${PROJECT_BINARY_DIR}/installed/${name}")
      execute_process(COMMAND ${CMAKE_STRIP} -o "${stripped}" "${path}" COMMAND_ERROR_IS_FATAL ANY)
      install(FILES "${stripped}" DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime)
    endif()
  endforeach()
  # Their licences, as Debian's packages of them state them.
  foreach(package IN ITEMS gcc-mingw-w64-base mingw-w64-common)
    if(EXISTS "/usr/share/doc/${package}/copyright")
      install(FILES "/usr/share/doc/${package}/copyright" DESTINATION "${CMAKE_INSTALL_DOCDIR}/licences"
        RENAME "${package}.txt" COMPONENT Documentation)
    endif()
  endforeach()
  install(FILES "${PROJECT_SOURCE_DIR}/cmake/packages/windows.txt" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
    COMPONENT Documentation)
endif()

# The pages link to one another as they do in the tree. What only the HTML has (pictures of ./dev docs, the playground)
# and what only the tree has is left out.
file(READ "${PROJECT_SOURCE_DIR}/README.md" readme)
string(REGEX REPLACE "<a href=\"[^\"]*\">([^<]*)</a>" "\\1" readme "${readme}")
string(REPLACE ", [pictures](docs/gallery.md)" "" readme "${readme}")
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/installed/README.md" CONTENT "${readme}" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/installed/README.md" "${PROJECT_SOURCE_DIR}/LICENSE"
  "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/CONTRIBUTING.md"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT Documentation)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT Documentation
  FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "gallery.md" EXCLUDE PATTERN "mutants.md" EXCLUDE)
if(NOT WIN32 AND ZEPH_BUILD_SELFTEST)
  install(FILES "${PROJECT_SOURCE_DIR}/tools/selftest/zeph-selftest.1"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT Development)
endif()

if(PROJECT_IS_TOP_LEVEL)
  include(ZephPackages)
endif()
