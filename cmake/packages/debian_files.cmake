# Run by cpack when the files of the packages stand in their folders: what Debian's policy asks for beside them.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
file(READ "${CPACK_ZEPH_SOURCE}/LICENSE" license)
string(REGEX REPLACE "\n\n" "\n.\n" license "${license}")
string(REGEX REPLACE "\n([^\n])" "\n \\1" license "${license}")
string(STRIP "${license}" license)
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(part IN ITEMS runtime dev)
  set(usr "${CPACK_TEMPORARY_DIRECTORY}/${part}/usr")
  string(TOUPPER ${part} PART)
  set(package "${CPACK_DEBIAN_${PART}_PACKAGE_NAME}")
  set(doc "${usr}/share/doc/${package}")
  file(WRITE "${doc}/copyright"
    "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\n"
    "Upstream-Name: ZEPHDataStructureEngine\n\n"
    "Files: *\nCopyright: 2026 ZEPHDataStructureEngine developers\nLicense: Expat\n ${license}\n")
  file(WRITE "${doc}/changelog"
    "zephdatastructureengine (${CPACK_PACKAGE_VERSION}) unstable; urgency=medium\n\n"
    "  * Version ${CPACK_PACKAGE_VERSION}; CHANGELOG.md of the -dev package tells what changed.\n\n"
    " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
  file(GLOB manuals "${usr}/share/man/man*/*.[1-9]")
  execute_process(COMMAND gzip -9nf "${doc}/changelog" ${manuals} COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE licences "${usr}/share/doc/LICENSE" "${usr}/share/doc/*/LICENSE")
  if(licences)
    file(REMOVE ${licences})  # the copyright file holds it
  endif()
  # The system finds the library by itself.
  file(GLOB programs "${usr}/bin/*")
  foreach(program IN LISTS programs)
    file(RPATH_REMOVE FILE "${program}")
  endforeach()
  file(GLOB_RECURSE everything LIST_DIRECTORIES ON "${usr}/*")
  foreach(path IN LISTS everything)
    if(IS_DIRECTORY "${path}" OR path MATCHES "/bin/[^/]*$")
      file(CHMOD "${path}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    elseif(NOT IS_SYMLINK "${path}")
      file(CHMOD "${path}" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    endif()
  endforeach()
endforeach()
