# Sets DOVRA_COMMIT, the commit that is built; DOVRA_BUILD, what programs say of themselves; and the
# version and date of packages, DOVRA_PACKAGE_VERSION and DOVRA_DATE.

set(commit "$Format:%h %ct$")  # filled in by `git archive`
if(commit MATCHES Format)
  find_package(Git QUIET)
  set(error "git is not installed")
  if(NOT EXISTS ${PROJECT_SOURCE_DIR}/.git)  # git would look for a repository in the directories above
    set(error "${PROJECT_SOURCE_DIR} is not a git checkout")
  elseif(Git_FOUND)
    execute_process(COMMAND ${GIT_EXECUTABLE} log -1 "--format=%h %ct"
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE commit ERROR_VARIABLE error)
    # Configure again after each commit.
    execute_process(COMMAND ${GIT_EXECUTABLE} rev-parse --path-format=absolute --git-path logs/HEAD
      WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE log OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(log AND EXISTS ${log})
      set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${log})
    endif()
  endif()
endif()

set(DOVRA_COMMIT unknown)
if(commit MATCHES "^([0-9a-f]+) ([0-9]+)")
  set(DOVRA_COMMIT ${CMAKE_MATCH_1})
  set(ENV{SOURCE_DATE_EPOCH} ${CMAKE_MATCH_2})  # the time that string(TIMESTAMP) formats
  string(TIMESTAMP suffix "+git%Y%m%d%H%M%S.${DOVRA_COMMIT}" UTC)
else()
  string(REGEX REPLACE "\n.*" "" error "${error}")
  message(WARNING "This build cannot name its commit: ${error}")
endif()
string(TIMESTAMP DOVRA_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(DOVRA_BUILD "${PROJECT_VERSION} (commit ${DOVRA_COMMIT})")
set(DOVRA_PACKAGE_VERSION ${PROJECT_VERSION}${suffix})
