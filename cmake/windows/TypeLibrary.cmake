# A type library as a resource of a module.
enable_language(RC)
find_program(QBTD_WIDL ${triplet}-widl REQUIRED)
# The system's own types, by which every program knows them; wine's are the same.
find_file(QBTD_STANDARD_TYPES stdole2.tlb REQUIRED NO_CMAKE_FIND_ROOT_PATH
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows)

# qbtd_type_library(x.idl variable): the source file to add to the module. What the file imports lies
# beside it.
function(qbtd_type_library idl variable)
  get_filename_component(name ${idl} NAME_WE)
  get_filename_component(folder ${idl} DIRECTORY)
  get_filename_component(types ${QBTD_STANDARD_TYPES} DIRECTORY)
  set(library ${CMAKE_CURRENT_BINARY_DIR}/${name}.tlb)
  file(GLOB imported ${folder}/*.idl)
  add_custom_command(OUTPUT ${library}
    COMMAND ${QBTD_WIDL} -I ${folder} -L ${types} -t -o ${library} ${idl}
    DEPENDS ${imported} VERBATIM)
  set(resource ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  file(CONFIGURE OUTPUT ${resource} CONTENT "1 TYPELIB \"@library@\"\n" @ONLY)
  set_source_files_properties(${resource} PROPERTIES OBJECT_DEPENDS ${library})
  set(${variable} ${resource} PARENT_SCOPE)
endfunction()
