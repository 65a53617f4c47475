# Installation in the GNUInstallDirs places: the shared and static client
# libraries, qva.h and the toolkit headers, the programs with their manual
# pages, a pkg-config file and a CMake package; the Debian package through
# CPack. The version everywhere is the project version.
# Documents go where Debian looks for them: under the package's name.
set(CMAKE_INSTALL_DOCDIR share/doc/libqvaclient CACHE PATH "Documentation (DOCDIR)")
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(_qva_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/LibQVAClient)
set(_qva_toolkit_includedir ${CMAKE_INSTALL_INCLUDEDIR}/qva/zenalib)

# The shared library: versioned file with the major version as its soname.
if(NOT WIN32)
  set_target_properties(qvaclient PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
endif()
# Users of the installed library find qva.h under the install prefix.
set_property(TARGET qvaclient PROPERTY INTERFACE_INCLUDE_DIRECTORIES
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>)

# The static library: every layer's objects in one archive, so a program can
# link the client (or the toolkit behind the headers under qva/zenalib)
# without the shared object. Its user links libcrypto and threads.
add_library(qvaclient_static STATIC ${PROJECT_SOURCE_DIR}/libqvaclient/qvaexports.cpp
  $<TARGET_OBJECTS:qvaclient_core> $<TARGET_OBJECTS:aibase> $<TARGET_OBJECTS:zenalib>
  $<TARGET_OBJECTS:qva_base>)
if(TARGET qsprocess)
  target_sources(qvaclient_static PRIVATE $<TARGET_OBJECTS:qsprocess>)
endif()
target_include_directories(qvaclient_static
  PRIVATE $<TARGET_PROPERTY:qvaclient_core,INTERFACE_INCLUDE_DIRECTORIES>
  INTERFACE $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>)
target_compile_definitions(qvaclient_static PRIVATE QVA_BUILDING_LIBRARY)
target_link_libraries(qvaclient_static INTERFACE OpenSSL::Crypto Threads::Threads)
if(WIN32)
  target_link_libraries(qvaclient_static INTERFACE wsock32)
endif()
set_target_properties(qvaclient_static PROPERTIES OUTPUT_NAME qvaclient)

install(TARGETS qvaclient EXPORT LibQVAClientTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS qvaclient_static EXPORT LibQVAClientStaticTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT LibQVAClientTargets NAMESPACE LibQVAClient:: DESTINATION ${_qva_cmake_dir})
install(EXPORT LibQVAClientStaticTargets NAMESPACE LibQVAClient:: DESTINATION ${_qva_cmake_dir})

# Headers: the C interface, and the toolkit's headers laid out as in the
# source tree ("base/...", "ZENALib/ASN1/..."). The crypto core's own
# headers stay inside.
install(FILES ${PROJECT_SOURCE_DIR}/include/qva/qva.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qva)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/base/ DESTINATION ${_qva_toolkit_includedir}/base
  FILES_MATCHING PATTERN "*.h" PATTERN "platform" EXCLUDE)
foreach(part ASN1 ASN1Pkix QSCrypto QSProcess)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/ZENALib/${part}/ DESTINATION ${_qva_toolkit_includedir}/ZENALib/${part}
    FILES_MATCHING PATTERN "*.h"
    PATTERN "platform" EXCLUDE PATTERN "ECSPInternal.h" EXCLUDE PATTERN "KCDSA.h" EXCLUDE)
endforeach()

# Programs and their manual pages (compressed, as Debian expects them).
install(TARGETS qva RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(_qva_man_pages qva)
if(TARGET qva-server)
  install(TARGETS qva-server RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  list(APPEND _qva_man_pages qva-server)
endif()
find_program(QVA_GZIP gzip)
foreach(page ${_qva_man_pages})
  set(_src ${PROJECT_SOURCE_DIR}/tools/man/${page}.1)
  if(QVA_GZIP)
    set(_out ${PROJECT_BINARY_DIR}/man/${page}.1.gz)
    add_custom_command(OUTPUT ${_out}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/man
      COMMAND ${QVA_GZIP} -9nc ${_src} > ${_out}
      DEPENDS ${_src} VERBATIM)
    list(APPEND _qva_man_outputs ${_out})
  else()
    set(_out ${_src})
  endif()
  install(FILES ${_out} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
if(_qva_man_outputs)
  add_custom_target(qva_man_pages ALL DEPENDS ${_qva_man_outputs})
endif()

install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

# pkg-config: paths relative to the file itself, so a staged or relocated
# tree works as well as the prefix it was built for.
file(RELATIVE_PATH _qva_pc_up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" _qva_pc_up "${_qva_pc_up}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/qvaclient.pc.in ${PROJECT_BINARY_DIR}/qvaclient.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qvaclient.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# CMake package: find_package(LibQVAClient) gives LibQVAClient::qvaclient
# (and LibQVAClient::qvaclient_static when libcrypto is found).
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/LibQVAClientConfig.cmake.in
  ${PROJECT_BINARY_DIR}/LibQVAClientConfig.cmake INSTALL_DESTINATION ${_qva_cmake_dir}
  PATH_VARS _qva_toolkit_includedir)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/LibQVAClientConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/LibQVAClientConfig.cmake ${PROJECT_BINARY_DIR}/LibQVAClientConfigVersion.cmake
  DESTINATION ${_qva_cmake_dir})

# Debian package of everything above, dependencies from the binaries.
if(UNIX AND NOT APPLE)
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGE_NAME libqvaclient)
  set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "certificate-validation client library, PKI toolkit and tools")
  set(CPACK_PACKAGE_DESCRIPTION
    "The C library libqvaclient asks a validation server for the verdict on a certificate; it comes with the
qva command-line tool, a reference server (qva-server), the headers, a static library with the PKI toolkit,
a pkg-config file and a CMake package.")
  set(CPACK_PACKAGE_CONTACT "LibQVAClient maintainers <maintainers@users.noreply.c-seed-c38c665b.example>")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_STRIP_FILES ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION libs)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
  # The headers and the static library are used with libcrypto's own.
  set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libssl-dev, pkg-config")
  include(CPack)
endif()
