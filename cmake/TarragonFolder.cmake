# Warnings, sanitizers and include root shared by every target of the project.
add_library(tarragon_options INTERFACE)
target_include_directories(tarragon_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(
  tarragon_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wimplicit-fallthrough)
# At -O3 this compiler takes a short text put before another, "F" + std::to_string(1), for copying onto itself. The next
# version does not.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tarragon_options INTERFACE -Wno-restrict)
endif()
if(TARRAGON_WARNINGS_AS_ERRORS)
  target_compile_options(tarragon_options INTERFACE -Werror)
endif()
if(TARRAGON_SANITIZE)
  target_compile_options(tarragon_options INTERFACE -fsanitize=${TARRAGON_SANITIZE} -fno-omit-frame-pointer
                                                    -fno-sanitize-recover=all)
  target_link_options(tarragon_options INTERFACE -fsanitize=${TARRAGON_SANITIZE})
endif()

# tarragon_folder(<folder> [WIDGETS] [USES <folder>...] [LIBRARIES <target>...])
#
# One static library for one folder below src/. A folder may include its own headers, the seam's (platform) and those
# of the folders in USES; the build stops on any other #include of ours. WIDGETS: the toolkit's tools read the folder's
# classes and its interface files.
function(tarragon_folder folder)
  cmake_parse_arguments(ARG "WIDGETS" "" "USES;LIBRARIES" ${ARGN})
  string(REPLACE "/" "_" target ${folder})
  set(directory ${PROJECT_SOURCE_DIR}/src/${folder})
  file(GLOB sources CONFIGURE_DEPENDS ${directory}/*.cpp)
  file(GLOB headers CONFIGURE_DEPENDS ${directory}/*.h)

  set(used_targets)
  foreach(used IN LISTS ARG_USES)
    string(REPLACE "/" "_" used_target ${used})
    list(APPEND used_targets tarragon_${used_target})
  endforeach()

  if(sources)
    add_library(tarragon_${target} STATIC ${sources} ${headers})
    if(ARG_WIDGETS)
      set_target_properties(tarragon_${target} PROPERTIES AUTOMOC ON AUTOUIC ON)
    endif()
    target_link_libraries(tarragon_${target} PUBLIC tarragon_options ${used_targets} ${ARG_LIBRARIES})
  else()
    add_library(tarragon_${target} INTERFACE)
    target_link_libraries(tarragon_${target} INTERFACE tarragon_options ${used_targets} ${ARG_LIBRARIES})
  endif()

  set(stamp ${CMAKE_BINARY_DIR}/includes/${target}.stamp)
  set(allowed ${folder} platform ${ARG_USES})
  list(REMOVE_DUPLICATES allowed)
  string(REPLACE ";" "," allowed "${allowed}")
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -DFOLDER=${folder} -DALLOWED=${allowed} -DDIRECTORY=${directory} -DSTAMP=${stamp} -P
            ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
    DEPENDS ${sources} ${headers} ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
    COMMENT "Checking what ${folder} includes")
  add_custom_target(tarragon_${target}_includes ALL DEPENDS ${stamp})
endfunction()
