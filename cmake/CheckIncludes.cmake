cmake_minimum_required(VERSION 3.25)

# Stops the build when a file of FOLDER includes one of our headers from a folder that it may not use.
# DIRECTORY holds the files, ALLOWED is a comma-separated list of folders, STAMP is touched on success.
string(REPLACE "," ";" allowed "${ALLOWED}")
file(GLOB files ${DIRECTORY}/*.cpp ${DIRECTORY}/*.h)
foreach(file IN LISTS files)
  file(STRINGS ${file} lines REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE ".*\"([^\"]*)\".*" "\\1" header "${line}")
    cmake_path(GET header PARENT_PATH folder)
    if(NOT folder IN_LIST allowed)
      message(FATAL_ERROR "${file}: ${FOLDER} may not include \"${header}\" (allowed: ${ALLOWED})")
    endif()
  endforeach()
endforeach()
file(WRITE ${STAMP} "")
