# cmake -D BUILD=... -D CONFIG=... -D FIRST=... -D PREFIX=... -P Install.cmake
# Installs the build tree into FIRST and moves that tree to PREFIX, which no file of it may name.
unset(ENV{DESTDIR})
file(REMOVE_RECURSE ${FIRST} ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${FIRST} --config "${CONFIG}" COMMAND_ERROR_IS_FATAL ANY
                OUTPUT_QUIET)
file(RENAME ${FIRST} ${PREFIX})

file(GLOB_RECURSE texts ${PREFIX}/*.cmake ${PREFIX}/*.pc ${PREFIX}/*.h)
foreach(text IN LISTS texts)
  foreach(place ${FIRST} ${BUILD})
    file(STRINGS ${text} lines REGEX ${place})
    if(lines)
      message(SEND_ERROR "${text} names ${place}: ${lines}")
    endif()
  endforeach()
endforeach()
