# What the properties of a program's file tell: what it is, and its version, by which installers know
# the newer one of two files.
enable_language(RC)
set(QBTD_VERSION_INFO ${CMAKE_CURRENT_LIST_DIR}/version_info.rc.in)

# qbtd_version_info(target DESCRIPTION): signs beyond ASCII are written as \x5957.
function(qbtd_version_info target description)
  get_target_property(type ${target} TYPE)
  if(type STREQUAL "EXECUTABLE")
    set(kind VFT_APP)
    set(suffix exe)
  else()
    set(kind VFT_DLL)
    set(suffix dll)
  endif()
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  configure_file(${QBTD_VERSION_INFO} ${resource} @ONLY)
  target_sources(${target} PRIVATE ${resource})
endfunction()
