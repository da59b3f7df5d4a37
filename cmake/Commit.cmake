# DOVRA_COMMIT names the commit that is built: as `git archive` wrote it here, else as git says, else
# "unknown".
set(DOVRA_COMMIT "$Format:%h$")
if(DOVRA_COMMIT MATCHES "Format")
  set(DOVRA_COMMIT unknown)
  find_package(Git QUIET)
  # Without a .git of its own, this folder may stand in a repository that is another's.
  if(Git_FOUND AND EXISTS ${PROJECT_SOURCE_DIR}/.git)
    # The first line names what changes with every commit: the build is then configured anew.
    execute_process(
      COMMAND ${GIT_EXECUTABLE} rev-parse --path-format=absolute --git-path logs/HEAD --short HEAD
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} RESULT_VARIABLE failed OUTPUT_VARIABLE answer ERROR_QUIET)
    if(NOT failed AND answer MATCHES "^(.*)\n([0-9a-f]+)\n$")
      set(DOVRA_COMMIT ${CMAKE_MATCH_2})
      if(EXISTS ${CMAKE_MATCH_1})
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_MATCH_1})
      endif()
    endif()
  endif()
endif()
