# Runs PROGRAM with the arguments ARGS (a ;-list) and no display, and passes only
# when it exits with 0, writes nothing to its error output and its output
# matches the regular expression EXPECT.
unset(ENV{DISPLAY})
unset(ENV{WAYLAND_DISPLAY})
unset(ENV{QT_QPA_PLATFORM})
execute_process(COMMAND ${PROGRAM} ${ARGS} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT code EQUAL 0 OR NOT err STREQUAL "" OR NOT out MATCHES "${EXPECT}")
  message(FATAL_ERROR "'${ARGS}' -> exit ${code}, output '${out}', error output '${err}'; expected output matching '${EXPECT}'")
endif()
message(STATUS "'${ARGS}' -> ${out}")
