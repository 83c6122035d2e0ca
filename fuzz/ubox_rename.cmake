# Writes a header that renames every external symbol of a static library by
# putting a prefix before it, so that a second build of the same sources can be
# linked beside another library that defines the same names.
#   cmake -DNM=<nm> -DLIB=<archive> -DPREFIX=<prefix> -DOUT=<header> -P ubox_rename.cmake
execute_process(COMMAND ${NM} -g --defined-only -P ${LIB}
  OUTPUT_VARIABLE listing RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "${NM} could not list ${LIB}")
endif()
string(REPLACE "\n" ";" lines "${listing}")
set(text "/* Generated from ${LIB}. */\n")
set(names "")
foreach(line IN LISTS lines)
  # C names only: C++ names are mangled (_Z...), compiler ones start with '_'.
  if(line MATCHES "^([A-Za-z][A-Za-z0-9_]*) [TDBRVW] ")
    list(APPEND names ${CMAKE_MATCH_1})
  endif()
endforeach()
list(REMOVE_DUPLICATES names)
list(SORT names)
foreach(name IN LISTS names)
  string(APPEND text "#define ${name} ${PREFIX}${name}\n")
endforeach()
file(WRITE ${OUT}.tmp "${text}")
execute_process(COMMAND ${CMAKE_COMMAND} -E copy_if_different ${OUT}.tmp ${OUT})
