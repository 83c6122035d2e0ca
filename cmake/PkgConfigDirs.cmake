# blobxlate_pc_dir(OUT FLAG DIR USUAL...): "FLAGDIR " (FLAG -I or -L), the
# flag a consumer of blobxlate.pc needs to find libubox in DIR, or nothing
# when a compiler looks there anyway (the usual system directories and
# USUAL, the compiler's own and blobxlate's). A cross build names DIR as the
# target sees it, without the staging root it was found under (CMAKE_SYSROOT
# or an entry of CMAKE_FIND_ROOT_PATH, which may be the staging tree's usr/):
# pkg-config puts PKG_CONFIG_SYSROOT_DIR in front again.
function(blobxlate_pc_dir out flag dir)
  set(usual ${ARGN} /usr/include /usr/lib /include /lib)
  foreach(root ${CMAKE_SYSROOT} ${CMAKE_FIND_ROOT_PATH})
    string(FIND "${dir}/" "${root}/" at)
    if(at EQUAL 0 AND NOT root STREQUAL "/")
      string(LENGTH "${root}" n)
      string(SUBSTRING "${dir}" ${n} -1 dir)
      break()
    endif()
  endforeach()
  if(dir IN_LIST usual)
    set(${out} "" PARENT_SCOPE)
  else()
    set(${out} "${flag}${dir} " PARENT_SCOPE)
  endif()
endfunction()
