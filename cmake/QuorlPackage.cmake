# Installing the engine for host programs: the plug-in, the embedding API's
# library with the layers it stands on, its headers, a CMake package
# (find_package(QuorlScript), target QuorlScript::host) and a pkg-config
# file (quorlscript).

set(QUORL_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QuorlScript)

install(TARGETS QuorlScriptPlugin LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS quorl_host quorl_plugin_boundary quorl_runtime quorl_universal
  EXPORT QuorlScriptTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/StandInHost/include/quorl
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/Plugin/PluginBoundary.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Plugin)

install(EXPORT QuorlScriptTargets NAMESPACE QuorlScript::
  DESTINATION ${QUORL_PACKAGE_DIR})
set_target_properties(quorl_host PROPERTIES EXPORT_NAME host)
file(WRITE ${PROJECT_BINARY_DIR}/QuorlScriptConfig.cmake
  "include(\${CMAKE_CURRENT_LIST_DIR}/QuorlScriptTargets.cmake)\n")
install(FILES ${PROJECT_BINARY_DIR}/QuorlScriptConfig.cmake
  DESTINATION ${QUORL_PACKAGE_DIR})

configure_file(${CMAKE_CURRENT_LIST_DIR}/quorlscript.pc.in
  ${PROJECT_BINARY_DIR}/quorlscript.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quorlscript.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
