# ztmath_shared_library(TARGET EXPORTS FILE)
#
# Gives a shared library its soname and exactly the exports listed in FILE (one name a line): whatever
# is not listed stays inside, whoever declared it.
function(ztmath_shared_library target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORTS" "")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${arg_EXPORTS})
  file(STRINGS ${arg_EXPORTS} names REGEX "^[A-Za-z_]")
  list(JOIN names "; " globals)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
  file(CONFIGURE OUTPUT ${script} CONTENT "{ global: @globals@; local: *; };\n" @ONLY)

  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    C_VISIBILITY_PRESET hidden
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON
    LINK_DEPENDS ${script})
  target_compile_options(${target} PRIVATE -fno-semantic-interposition)
  target_link_options(${target} PRIVATE
    -Wl,--version-script=${script} -Wl,-Bsymbolic-functions -Wl,--as-needed)
  if(NOT ZTMATH_SANITIZE)  # the sanitizers' own names come with the executable
    target_link_options(${target} PRIVATE -Wl,-z,defs)
  endif()
endfunction()
