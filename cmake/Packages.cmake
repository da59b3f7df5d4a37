# The Debian packages, one for each component. script/package builds them.
set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_CONTACT "Dovra developers <dovra@dovra.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL plugin lab)
if(DOVRA_PLUGIN_ONLY)
  set(CPACK_COMPONENTS_ALL plugin)
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION ${DOVRA_PACKAGE_VERSION})
# Strips the files and writes their debug information to separate packages.
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# The plug-in depends only on the language's libraries: which packages hold the platform's libraries
# differs between hosts.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
if(DOVRA_PLATFORM_DIR)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${DOVRA_PLATFORM_DIR})
endif()

set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME dovra-plugin)
set(CPACK_DEBIAN_PLUGIN_DESCRIPTION "Dovra commands for a host's command line
The plug-in that adds the dovra namespace to the command-line framework of
an Orvane host. It needs the host's own libraries and is of no use elsewhere.
.
Built from commit ${DOVRA_COMMIT}.")

set(CPACK_DEBIAN_LAB_PACKAGE_NAME dovra-lab)
set(CPACK_DEBIAN_LAB_DESCRIPTION "rehearse Dovra clusters without a host
The program autocli runs the dovra commands on stand-in hosts, whose state it
keeps in a directory, to try out clusters, scripts and failures.
.
Built from commit ${DOVRA_COMMIT}.")
# For the stand-in hosts' scripts.
set(CPACK_DEBIAN_LAB_PACKAGE_DEPENDS python3)

include(CPack)
