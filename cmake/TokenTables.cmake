# The token catalogue is kept once, in foundation/tokens.txt. A small host tool turns it into
# the tok_<text> constants, the lazy getters and the perfect hash of getTokenId.
set(GRAFEL_GENERATED_SOURCES "")
set(GRAFEL_GENERATED_HEADERS "")
set(tokgen_source ${CMAKE_SOURCE_DIR}/foundation/codegen/TokenTablesGen.cpp)
if(EXISTS ${tokgen_source})
  add_executable(grafel_tokgen ${tokgen_source})
  set(token_header ${GRAFEL_GENERATED_DIR}/grafel/foundation/Tokens.h)
  set(token_source ${GRAFEL_GENERATED_DIR}/TokenTables.cpp)
  add_custom_command(
    OUTPUT ${token_header} ${token_source}
    COMMAND grafel_tokgen ${CMAKE_SOURCE_DIR}/foundation/tokens.txt ${token_header} ${token_source}
    DEPENDS grafel_tokgen ${CMAKE_SOURCE_DIR}/foundation/tokens.txt
    COMMENT "Generating the token tables"
    VERBATIM)
  list(APPEND GRAFEL_GENERATED_SOURCES ${token_source})
  list(APPEND GRAFEL_GENERATED_HEADERS ${token_header})
endif()
