# The standard object-type lists are kept once, in catalogue/objtypes.txt. A small host tool
# checks them against the token catalogue and turns them into row tables.
set(objtypegen_source ${CMAKE_SOURCE_DIR}/catalogue/codegen/ObjTypesGen.cpp)
add_executable(grafel_objtypegen ${objtypegen_source})
set(objtype_source ${GRAFEL_GENERATED_DIR}/ObjTypeTables.cpp)
add_custom_command(
  OUTPUT ${objtype_source}
  COMMAND grafel_objtypegen ${CMAKE_SOURCE_DIR}/catalogue/objtypes.txt
          ${CMAKE_SOURCE_DIR}/foundation/tokens.txt ${objtype_source}
  DEPENDS grafel_objtypegen ${CMAKE_SOURCE_DIR}/catalogue/objtypes.txt
          ${CMAKE_SOURCE_DIR}/foundation/tokens.txt
  COMMENT "Generating the object-type tables"
  VERBATIM)
list(APPEND GRAFEL_GENERATED_SOURCES ${objtype_source})
