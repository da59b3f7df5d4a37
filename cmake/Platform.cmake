# Imports a host's libraries under the names of the lab's targets, to link with them. include/platform
# declares their interface.
foreach(name clitools corectlcore corectl dovracorectl baselibs)
  find_library(DOVRA_PLATFORM_${name} ${name} PATHS ${DOVRA_PLATFORM_DIR} NO_DEFAULT_PATH NO_CACHE)
  if(NOT DOVRA_PLATFORM_${name})
    message(FATAL_ERROR "DOVRA_PLATFORM_DIR, ${DOVRA_PLATFORM_DIR}, has no lib${name}.so")
  endif()
  add_library(${name} SHARED IMPORTED)
  # Otherwise the plug-in would record the path of a library that has no soname.
  set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${DOVRA_PLATFORM_${name}}
    IMPORTED_NO_SONAME ON INTERFACE_INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR}/include)
endforeach()
