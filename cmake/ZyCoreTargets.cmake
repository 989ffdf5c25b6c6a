# Settings that every target of the project takes, in one place.

# zycore_sanitize(<target>): the sanitizers of ZYCORE_SANITIZE.
function(zycore_sanitize target)
  if(ZYCORE_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${ZYCORE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=${ZYCORE_SANITIZE})
  endif()
endfunction()

# zycore_settings(<target>): warnings, sanitizers and the Qt definitions of our own code.
function(zycore_settings target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
  if(MSVC)
    # Else the headers of the system make macros of min and max, and every C function a warning.
    target_compile_definitions(${target} PRIVATE NOMINMAX _CRT_SECURE_NO_WARNINGS)
    target_compile_options(${target} PRIVATE /W4 /utf-8 /Zc:__cplusplus $<$<BOOL:${ZYCORE_WARNINGS_AS_ERRORS}>:/WX>)
  else()
    target_compile_options(${target} PRIVATE -pedantic-errors -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor
                                             -Woverloaded-virtual -Werror=format -Werror=address
                                             $<$<BOOL:${ZYCORE_WARNINGS_AS_ERRORS}>:-Werror>)
  endif()
  zycore_sanitize(${target})
endfunction()

# zycore_test_settings(<target>): the same, compiled fast: compiling the tests is most of the work of a build, and what they
# test keeps its own optimisation.
function(zycore_test_settings target)
  zycore_settings(${target})
  if(NOT MSVC)
    set(optimisation -O1)
    if(ZYCORE_SANITIZE)
      set(optimisation -O0)
    endif()
    target_compile_options(${target} PRIVATE ${optimisation} -g1)
  endif()
endfunction()
