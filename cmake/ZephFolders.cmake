# The dependency graph as code. Each folder of src/ is an object library, and its include path holds that
# folder, those that it names, and nothing else: an include against the graph does not compile.

# What holds for all of the library's own sources, and for nobody else's.
add_library(zeph_library_sources INTERFACE)

# An interface library that shows `names`, files or folders in `place` (src or include), and nothing beside
# them. What the compiler records keeps the true names.
function(zeph_show library place)
  set(root "${CMAKE_CURRENT_BINARY_DIR}/include/${library}")
  add_library(${library} INTERFACE)
  foreach(name IN LISTS ARGN)
    get_filename_component(parent "${root}/${name}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${place}/${name}" "${root}/${name}" SYMBOLIC COPY_ON_ERROR)
  endforeach()
  target_include_directories(${library} INTERFACE "${root}")
  if(zeph_recorded_as)
    target_compile_options(${library} INTERFACE "${zeph_recorded_as}${root}=./${place}")
  endif()
endfunction()

# The public headers of `folder`: <folder>.h and what it gathers from include/<folder>/.
function(zeph_add_headers folder)
  set(names ${folder}.h)
  file(GLOB gathered CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/${folder}/*.h")
  if(gathered)
    list(APPEND names ${folder})
  endif()
  zeph_show(zeph_${folder}_headers include ${names})
endfunction()

# zeph_add_folder(NAME [USES folder...] [HEADERS library...]): the object library zeph_NAME, which may include
# all of the folders in USES, and of others what the libraries in HEADERS show.
function(zeph_add_folder folder)
  cmake_parse_arguments(PARSE_ARGV 1 may "" "" "USES;HEADERS")
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  zeph_show(zeph_${folder}_inside src ${folder})
  add_library(zeph_${folder} OBJECT ${sources})
  zeph_configure_target(zeph_${folder})
  target_link_libraries(zeph_${folder} PRIVATE zeph_library_sources ${may_HEADERS} PUBLIC zeph_${folder}_inside)
  if(TARGET zeph_${folder}_headers)
    target_link_libraries(zeph_${folder} PUBLIC zeph_${folder}_headers)
  endif()
  foreach(used IN LISTS may_USES)
    target_link_libraries(zeph_${folder} PRIVATE zeph_${used})
  endforeach()
endfunction()
