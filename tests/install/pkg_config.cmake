# Builds SOURCE as a C programmer would, with what pkg-config says, and runs it.
set(ENV{PKG_CONFIG_LIBDIR} ${PC_DIR})
function(ask_pkg_config variable)
  execute_process(COMMAND ${PKG_CONFIG} ${ARGN} ztmath
                  OUTPUT_VARIABLE words OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(words UNIX_COMMAND "${words}")
  set(${variable} ${words} PARENT_SCOPE)
endfunction()
ask_pkg_config(compile_flags --cflags)
ask_pkg_config(link_flags --libs)
ask_pkg_config(libdir --variable=libdir)
execute_process(
  COMMAND ${CC} -std=c99 -Wall -Wextra -pedantic -Werror ${compile_flags} ${SOURCE} -o ${PROGRAM}
          ${link_flags} -Wl,-rpath,${libdir}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${PROGRAM} COMMAND_ERROR_IS_FATAL ANY)
