# Runs PROGRAM with the arguments ARGS (a ;-list) and no display, and passes only
# when it exits with 0, writes nothing to its error output and its output
# matches the regular expression EXPECT; with FILE, only when it has written
# that file afresh and the file matches FILE_EXPECT.
unset(ENV{DISPLAY})
unset(ENV{WAYLAND_DISPLAY})
unset(ENV{QT_QPA_PLATFORM})
if(DEFINED FILE)
  file(REMOVE "${FILE}")
endif()
execute_process(COMMAND ${PROGRAM} ${ARGS} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT code EQUAL 0 OR NOT err STREQUAL "" OR NOT out MATCHES "${EXPECT}")
  message(FATAL_ERROR "'${ARGS}' -> exit ${code}, output '${out}', error output '${err}'; expected output matching '${EXPECT}'")
endif()
message(STATUS "'${ARGS}' -> ${out}")
if(DEFINED FILE)
  file(READ "${FILE}" written)
  if(NOT written MATCHES "${FILE_EXPECT}")
    message(FATAL_ERROR "'${ARGS}' wrote '${written}' to ${FILE}; expected text matching '${FILE_EXPECT}'")
  endif()
endif()
