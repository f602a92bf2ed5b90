# Builds ArchiveTool, which reads and writes keyed archives with an implementation that is not ours, where GNUstep and
# an Objective-C compiler are installed. Tests that need it are skipped elsewhere.
find_program(GNUSTEP_CONFIG gnustep-config)
find_program(OBJECTIVE_C_COMPILER gcc)
if(NOT GNUSTEP_CONFIG OR NOT OBJECTIVE_C_COMPILER)
  return()
endif()
execute_process(COMMAND ${OBJECTIVE_C_COMPILER} -print-prog-name=cc1obj OUTPUT_VARIABLE front_end
                OUTPUT_STRIP_TRAILING_WHITESPACE)
# Without make the tool that knows the flags prints none.
execute_process(COMMAND ${GNUSTEP_CONFIG} --objc-flags OUTPUT_VARIABLE objective_c_flags
                OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT EXISTS "${front_end}" OR NOT objective_c_flags)
  return()
endif()

set(tool ${CMAKE_CURRENT_BINARY_DIR}/archive_tool)
set(source ${CMAKE_CURRENT_SOURCE_DIR}/ignore/ArchiveTool.m)
add_custom_command(
  OUTPUT ${tool}
  COMMAND sh -c "'${OBJECTIVE_C_COMPILER}' $('${GNUSTEP_CONFIG}' --objc-flags) -w -MF '${tool}.d' '${source}' -o '${tool}' $('${GNUSTEP_CONFIG}' --base-libs)"
  DEPENDS ${source}
  VERBATIM
  COMMENT "Building ArchiveTool")
add_custom_target(unit_ignore_archive_tool DEPENDS ${tool})
foreach(test unit_ignore unit_prefs_ignorelist)
  add_dependencies(${test} unit_ignore_archive_tool)
  target_compile_definitions(${test} PRIVATE TARRAGON_ARCHIVE_TOOL="${tool}")
endforeach()
