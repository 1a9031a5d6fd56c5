# What an installation holds, and the Debian package made of it.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# The agent has no version, and serves hosts that load it by its path.
set(private_library_dir ${CMAKE_INSTALL_LIBDIR}/idlexport)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/idlexport)
set(data_dir ${CMAKE_INSTALL_DATADIR}/idlexport)

set_target_properties(idlexport_command PROPERTIES EXPORT_NAME idlexport)
set_target_properties(idlexport_agent PROPERTIES EXPORT_NAME agent)

# The interfaces that a host of the agent implements; they include each other as "host/…".
file(GLOB host_headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/host/*.h)
add_library(idlexport_host INTERFACE)
set_target_properties(idlexport_host PROPERTIES EXPORT_NAME host)
target_compile_features(idlexport_host INTERFACE cxx_std_20)
target_sources(idlexport_host INTERFACE
  FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${host_headers})

install(TARGETS idlexport_command idlexport_agent idlexport_host EXPORT idlexportTargets
  LIBRARY DESTINATION ${private_library_dir}
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/idlexport)

# The examples refer to the profile and the library relative to themselves.
install(FILES profile/CORBA.profile.uml profile/CORBA.library.uml DESTINATION ${data_dir}/profile)
install(DIRECTORY examples DESTINATION ${data_dir})
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES docs/modelling.md docs/messages.md DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
install(FILES docs/idlexport.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

install(FILES command/completions/idlexport.bash RENAME idlexport
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES command/completions/idlexport.zsh RENAME _idlexport
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(FILES command/completions/idlexport.fish
  DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

# The package that other projects find with find_package(idlexport).
configure_package_config_file(cmake/package/idlexportConfig.cmake.in idlexportConfig.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(idlexportConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/idlexportConfig.cmake ${PROJECT_BINARY_DIR}/idlexportConfigVersion.cmake
  cmake/package/idlexportGenerate.cmake
  DESTINATION ${package_dir})
install(EXPORT idlexportTargets NAMESPACE idlexport:: DESTINATION ${package_dir})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The idlexport developers <idlexport@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
Reads UML models in XMI files, as modelling tools save them, and writes
the CORBA IDL that their marked packages, interfaces and classes stand for:
declarations in the order that IDL wants, cycles broken by forward
declarations, and what IDL doesn't allow reported by name.")
# Draws the pictures of --graph.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS graphviz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
