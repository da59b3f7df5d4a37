# A host's libraries, under the names that the lab's targets have. They are only linked against: what
# they offer is declared in include/platform.
foreach(name clitools corectlcore corectl dovracorectl baselibs)
  find_library(DOVRA_PLATFORM_${name} ${name} PATHS ${DOVRA_PLATFORM_DIR} NO_DEFAULT_PATH NO_CACHE)
  if(NOT DOVRA_PLATFORM_${name})
    message(FATAL_ERROR "DOVRA_PLATFORM_DIR, ${DOVRA_PLATFORM_DIR}, has no lib${name}.so")
  endif()
  add_library(${name} SHARED IMPORTED)
  # Without a soname of its own, a library would be recorded by its path on this machine.
  set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${DOVRA_PLATFORM_${name}}
    IMPORTED_NO_SONAME ON INTERFACE_INCLUDE_DIRECTORIES ${PROJECT_SOURCE_DIR}/include)
endforeach()
