# DOVRA_COMMIT names the commit that is built, DOVRA_COMMIT_DATE says of when it is: as `git archive`
# wrote them here, else as git says, else "unknown" and the beginning of time.
set(DOVRA_COMMIT "$Format:%h$")
set(DOVRA_COMMIT_DATE "$Format:%cD$")
if(DOVRA_COMMIT MATCHES "Format")
  set(DOVRA_COMMIT unknown)
  set(DOVRA_COMMIT_DATE "Thu, 01 Jan 1970 00:00:00 +0000")
  find_package(Git QUIET)
  # Without a .git of its own, this folder may stand in a repository that is another's.
  if(Git_FOUND AND EXISTS ${PROJECT_SOURCE_DIR}/.git)
    execute_process(COMMAND ${GIT_EXECUTABLE} log -1 --format=%h,%cD
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE answer ERROR_QUIET)
    if(answer MATCHES "^([0-9a-f]+),(.*)\n$")
      set(DOVRA_COMMIT ${CMAKE_MATCH_1})
      set(DOVRA_COMMIT_DATE ${CMAKE_MATCH_2})
    endif()
    # What changes with every commit: the build is then configured anew.
    execute_process(COMMAND ${GIT_EXECUTABLE} rev-parse --path-format=absolute --git-path logs/HEAD
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE log OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(log AND EXISTS ${log})
      set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${log})
    endif()
  endif()
endif()
