# What an installed ZyCore consists of, and how other projects find it: in the install tree, which may be moved, and
# in the build tree.
include(CMakePackageConfigHelpers)

set(zycore_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake)

# zycore_install_library(<target>): the library and its CMake package, <target>::<target>.
function(zycore_install_library target)
  # Libraries of ours find each other beside themselves, wherever the tree is moved.
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$<$<PLATFORM_ID:Linux>:$ORIGIN>")
  install(TARGETS ${target} EXPORT ${target}Targets
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
  install(EXPORT ${target}Targets NAMESPACE ${target}:: DESTINATION ${zycore_package_dir}/${target} COMPONENT Development)
  export(EXPORT ${target}Targets NAMESPACE ${target}:: FILE ${PROJECT_BINARY_DIR}/${target}Targets.cmake)

  configure_package_config_file(cmake/${target}Config.cmake.in ${PROJECT_BINARY_DIR}/${target}Config.cmake
                                INSTALL_DESTINATION ${zycore_package_dir}/${target} NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file(${PROJECT_BINARY_DIR}/${target}ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${PROJECT_BINARY_DIR}/${target}Config.cmake ${PROJECT_BINARY_DIR}/${target}ConfigVersion.cmake
          DESTINATION ${zycore_package_dir}/${target} COMPONENT Development)
endfunction()

if(NOT ZYCORE_KEELBASE_ROOT)
  zycore_install_library(Keelbase)
  install(DIRECTORY keelbase/include/keelbase DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development)
endif()
zycore_install_library(ZyCore)
# A Keelbase from elsewhere stays where it is.
if(ZYCORE_KEELBASE_ROOT)
  set_target_properties(ZyCore PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
  set(ZYCORE_PC_KEELBASE_CFLAGS "-I$<JOIN:$<TARGET_PROPERTY:Keelbase::Keelbase,INTERFACE_INCLUDE_DIRECTORIES>, -I>")
  set(ZYCORE_PC_KEELBASE_LIBS "-L$<TARGET_LINKER_FILE_DIR:Keelbase::Keelbase> -lKeelbase")
else()
  set(ZYCORE_PC_KEELBASE_CFLAGS "-I\${includedir}")
  set(ZYCORE_PC_KEELBASE_LIBS -lKeelbase)
endif()
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ZyCore COMPONENT Development)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Runtime)

# The file names its tree from its own place, so that the tree may be moved.
file(RELATIVE_PATH ZYCORE_PC_UP ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/zycore.pc.in ${PROJECT_BINARY_DIR}/cmake/zycore.pc.in @ONLY)
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/zycore.pc INPUT ${PROJECT_BINARY_DIR}/cmake/zycore.pc.in)
install(FILES ${PROJECT_BINARY_DIR}/zycore.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)

set(CPACK_PACKAGE_NAME zycore)
set(CPACK_PACKAGE_VENDOR "The ZyCore developers")
set(CPACK_PACKAGE_CONTACT "The ZyCore developers <zycore@zycore.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_GENERATOR TGZ)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
endif()
if(MINGW AND CMAKE_CROSSCOMPILING)
  # Nothing of what the library needs is a part of the system: it all comes along, with its licences.
  install(DIRECTORY ${ZYCORE_MINGW_PREFIX}/bin/ DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime FILES_MATCHING PATTERN "*.dll")
  install(DIRECTORY ${ZYCORE_MINGW_PREFIX}/plugins/platforms ${ZYCORE_MINGW_PREFIX}/plugins/imageformats
          DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime FILES_MATCHING PATTERN "*.dll")
  install(DIRECTORY ${ZYCORE_MINGW_PREFIX}/share/licenses DESTINATION ${CMAKE_INSTALL_DATADIR} COMPONENT Runtime)
endif()
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
include(CPack)
