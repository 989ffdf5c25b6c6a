# cmake -D SOURCE=... -D BINARY=... [-D KEEP=TRUE] -P Consume.cmake -- <configure option>...
# Configures a project in a fresh folder (unless KEEP), builds it and runs its program.
set(options)
set(after_dashes FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(i RANGE ${last})
  if(after_dashes)
    # Lists inside an argument stay one argument.
    string(REPLACE ";" "\\;" argument "${CMAKE_ARGV${i}}")
    list(APPEND options "${argument}")
  elseif(CMAKE_ARGV${i} STREQUAL "--")
    set(after_dashes TRUE)
  endif()
endforeach()

# Nothing of the caller's environment may help or hinder.
foreach(variable CXXFLAGS CPPFLAGS LDFLAGS CPATH LIBRARY_PATH LD_LIBRARY_PATH DESTDIR CMAKE_PREFIX_PATH PKG_CONFIG_PATH)
  unset(ENV{${variable}})
endforeach()
set(ENV{QT_QPA_PLATFORM} offscreen)

if(NOT KEEP)
  file(REMOVE_RECURSE ${BINARY})
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${BINARY} ${options} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BINARY} --parallel 2 COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${BINARY}/consumer WORKING_DIRECTORY ${BINARY} COMMAND_ERROR_IS_FATAL ANY)
