# Installs the libraries, the module, the public headers, the tools' sample, the docs and a package that
# another project finds with find_package(QbTdPrinter) and links as QbTdPrinter::desktop or ::logic,
# or, if it loads the module, as QbTdPrinter::client or ::recordsets.
include(CMakePackageConfigHelpers)
include(cmake/PublicHeaders.cmake)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/QbTdPrinter)
# Adds a library of this project, and those of this project that it links, to the list `found`.
function(qbtd_add_own_libraries library found)
  set(libraries ${${found}})
  if(NOT library IN_LIST libraries)
    list(APPEND libraries ${library})
    get_target_property(links ${library} LINK_LIBRARIES)
    foreach(link ${links})
      if(link MATCHES "^td_")
        qbtd_add_own_libraries(${link} libraries)
      endif()
    endforeach()
  endif()
  set(${found} ${libraries} PARENT_SCOPE)
endfunction()

set(libraries)
qbtd_add_own_libraries(td_desktop libraries)
qbtd_add_own_libraries(td_recordset_objects libraries)
set_target_properties(td_logic PROPERTIES EXPORT_NAME logic)
set_target_properties(td_desktop PROPERTIES EXPORT_NAME desktop)
set_target_properties(td_client PROPERTIES EXPORT_NAME client)
# Their headers are C++20, which a program that links them may not have asked for.
target_compile_features(td_logic INTERFACE cxx_std_20)
target_compile_features(td_desktop INTERFACE cxx_std_20)
set_target_properties(td_recordset_objects PROPERTIES EXPORT_NAME recordsets)
install(TARGETS QbTdPrinter LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/qbtdprinter)
install(TARGETS ${libraries} EXPORT QbTdPrinterTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}/qbtdprinter)
install(EXPORT QbTdPrinterTargets NAMESPACE QbTdPrinter:: DESTINATION ${package_folder})

foreach(header ${qbtd_public_headers})
  string(REGEX REPLACE "^(src|adapters|server)/" "" included_as ${header})
  get_filename_component(folder ${included_as} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qbtdprinter/${folder})
endforeach()

install(DIRECTORY server/python/ DESTINATION ${CMAKE_INSTALL_DATADIR}/qbtdprinter/python
  FILES_MATCHING PATTERN "*.py")
install(DIRECTORY examples/ USE_SOURCE_PERMISSIONS DESTINATION ${CMAKE_INSTALL_DATADIR}/qbtdprinter/examples)

# The docs keep the places that they have here, so that their links hold; what lies elsewhere after
# the installation is reached by links of the file system.
install(FILES LICENSE README.md README.zh-CN.md CHANGELOG.md CONTRIBUTING.md SECURITY.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(PROGRAMS scripts/install-packages.sh DESTINATION ${CMAKE_INSTALL_DOCDIR}/scripts)
function(qbtd_link_in_docs link target)
  get_filename_component(folder ${CMAKE_INSTALL_FULL_DOCDIR}/${link} DIRECTORY)
  file(RELATIVE_PATH way ${folder} ${target})
  install(CODE "
    set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DOCDIR}/${link}\")
    get_filename_component(folder \"\${link}\" DIRECTORY)
    file(MAKE_DIRECTORY \"\${folder}\")
    file(CREATE_LINK \"${way}\" \"\${link}\" SYMBOLIC)")
endfunction()
qbtd_link_in_docs(examples ${CMAKE_INSTALL_FULL_DATADIR}/qbtdprinter/examples)
qbtd_link_in_docs(server/python ${CMAKE_INSTALL_FULL_DATADIR}/qbtdprinter/python)
qbtd_link_in_docs(server/interface ${CMAKE_INSTALL_FULL_INCLUDEDIR}/qbtdprinter/interface)

configure_package_config_file(cmake/QbTdPrinterConfig.cmake.in
  ${PROJECT_BINARY_DIR}/QbTdPrinterConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QbTdPrinterConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/QbTdPrinterConfig.cmake
  ${PROJECT_BINARY_DIR}/QbTdPrinterConfigVersion.cmake
  DESTINATION ${package_folder})

# The same for programs that are built without CMake. What is headers alone has no archive.
set(qbtd_linked)
foreach(library ${libraries})
  get_target_property(type ${library} TYPE)
  if(NOT type STREQUAL INTERFACE_LIBRARY)
    string(APPEND qbtd_linked " -l${library}")
  endif()
endforeach()
configure_file(cmake/qbtdprinter.pc.in ${PROJECT_BINARY_DIR}/qbtdprinter.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qbtdprinter.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
