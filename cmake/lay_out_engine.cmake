# Script: puts every file below FROM at the same place below TO, and takes away what an earlier run
# put there and FROM no longer has. LIST is the file that remembers what was put there.
#
# Hard links, because a Windows program that asks for a file's place is then told the one in TO on
# every system; copies where the file system has no links, or TO lies on another one.
file(GLOB_RECURSE files RELATIVE ${FROM} ${FROM}/*)
if(EXISTS ${LIST})
  file(STRINGS ${LIST} stale)
  list(REMOVE_ITEM stale ${files})
  foreach(file IN LISTS stale)
    file(REMOVE ${TO}/${file})
  endforeach()
endif()
# Before the files themselves: what a run that is interrupted has put there is known to the next.
list(JOIN files "\n" lines)
file(WRITE ${LIST} "${lines}\n")
foreach(file IN LISTS files)
  cmake_path(GET file PARENT_PATH folder)
  file(MAKE_DIRECTORY ${TO}/${folder})
  file(CREATE_LINK ${FROM}/${file} ${TO}/${file} COPY_ON_ERROR)
endforeach()
