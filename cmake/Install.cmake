# The installed files, in two components: the plug-in for a host, and the lab.

set(DOVRA_PLUGIN_DIR lib/orvane/autocli/plugins CACHE STRING
  "Directory where a host's framework looks for plug-ins, relative to the prefix")
install(TARGETS dovra LIBRARY DESTINATION ${DOVRA_PLUGIN_DIR} COMPONENT plugin)

find_program(GZIP gzip REQUIRED)
# The documents of each package. The plug-in's reference is the section about its commands.
configure_file(cmake/debian/changelog.in share/changelog)
file(READ docs/reference.md reference)
set(sections ".*\n(## Synopsis\n.*)\n(## Options\n.*)\n## Commands\n.*\n(## dovra\n.*)\n(## lab\n.*)\n## Declarations\n.*")
string(REGEX REPLACE "${sections}" "\\1" SYNOPSIS "${reference}")
string(REGEX REPLACE "${sections}" "\\2" OPTIONS "${reference}")
string(REGEX REPLACE "${sections}" "\\3" DOVRA_COMMANDS "${reference}")
string(REGEX REPLACE "${sections}" "\\4" LAB_COMMANDS "${reference}")
file(WRITE ${PROJECT_BINARY_DIR}/share/plugin/reference.md "# Reference\n\n${DOVRA_COMMANDS}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS docs/reference.md)
execute_process(COMMAND ${GZIP} -9nkf ${PROJECT_BINARY_DIR}/share/changelog COMMAND_ERROR_IS_FATAL ANY)
foreach(component plugin lab)
  install(FILES CHANGELOG.md cmake/debian/copyright ${PROJECT_BINARY_DIR}/share/changelog.gz
    DESTINATION share/doc/dovra-${component} COMPONENT ${component})
endforeach()
install(FILES docs/deploy.md ${PROJECT_BINARY_DIR}/share/plugin/reference.md
  DESTINATION share/doc/dovra-plugin COMPONENT plugin)

if(DOVRA_PLUGIN_ONLY)
  return()
endif()

set(EXECUTABLE OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The lab's libraries have the names of a host's, so they stay out of the directories that the loader
# searches.
install(TARGETS autocli RUNTIME DESTINATION bin COMPONENT lab)
install(TARGETS clitools baselibs corectlcore corectl dovracorectl
  LIBRARY DESTINATION lib/autocli/platform COMPONENT lab)
install(TARGETS lab_plugin dovra_lab LIBRARY DESTINATION lib/autocli/plugins COMPONENT lab)
install(DIRECTORY lab/hostroot/files/ DESTINATION share/autocli/hostroot COMPONENT lab
  DIRECTORY_PERMISSIONS ${EXECUTABLE} FILE_PERMISSIONS ${EXECUTABLE}
  PATTERN "*.conf" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
install(FILES docs/lab.md docs/reference.md DESTINATION share/doc/dovra-lab COMPONENT lab)
install(DIRECTORY docs/rehearsals DESTINATION share/doc/dovra-lab COMPONENT lab)

# The manual pages, from docs/reference.md.
add_custom_target(manual_pages ALL)
function(manual_page page directory)
  set(source ${PROJECT_BINARY_DIR}/share/${page}.md)
  set(plain ${PROJECT_BINARY_DIR}/${directory}/${page})
  configure_file(docs/man/${page}.md.in ${source} @ONLY)
  add_custom_command(OUTPUT ${plain}.gz
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/${directory}
    COMMAND ${LOWDOWN} -s -Tman --out-no-smarty -o ${plain} ${source}
    COMMAND sed -i -f ${PROJECT_SOURCE_DIR}/docs/man/layout.sed ${plain}
    COMMAND ${GZIP} -9nf ${plain}
    DEPENDS ${source} docs/man/layout.sed)
  add_custom_target(${page} DEPENDS ${plain}.gz)
  add_dependencies(manual_pages ${page})
  install(FILES ${plain}.gz DESTINATION ${directory} COMPONENT lab)
endfunction()
find_program(LOWDOWN lowdown)
if(LOWDOWN)
  manual_page(autocli.1 share/man/man1)
  manual_page(dovra.7 share/man/man7)
  # Both packages hold this page, under different names, so that both can be installed.
  install(FILES ${PROJECT_BINARY_DIR}/share/man/man7/dovra.7.gz DESTINATION share/man/man7
    RENAME dovra-plugin.7.gz COMPONENT plugin)
else()
  message(STATUS "No manual pages: lowdown was not found (Debian package lowdown)")
endif()

# The shells' completion scripts, where the shells and autocli look for them.
function(lab_completion source file)
  set(script ${PROJECT_BINARY_DIR}/share/${file})
  configure_file(${PROJECT_SOURCE_DIR}/lab/autocli/completion/${source} ${script} COPYONLY)
  get_filename_component(destination share/${file} DIRECTORY)
  install(FILES ${script} DESTINATION ${destination} COMPONENT lab)
endfunction()
lab_completion(autocli.bash bash-completion/completions/autocli)
lab_completion(_autocli zsh/vendor-completions/_autocli)
lab_completion(autocli.fish fish/vendor_completions.d/autocli.fish)

# All installed files, without the tests.
add_custom_target(installed DEPENDS
  dovra autocli manual_pages)
