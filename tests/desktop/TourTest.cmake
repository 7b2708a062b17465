# Takes the pictures of the documentation on a virtual display, and looks whether each is there and shows something.
file(REMOVE_RECURSE ${FOLDER})
execute_process(COMMAND ${XVFB_RUN} -a -s "-screen 0 1440x900x24" ${PROGRAM} ${CALENDAR} --tour ${FOLDER}
  RESULT_VARIABLE code ERROR_VARIABLE errors)
if(code)
  message(FATAL_ERROR "the tour ended with ${code}: ${errors}")
endif()
foreach(picture week editor panel panel-end client notice)
  if(NOT EXISTS ${FOLDER}/${picture}.png)
    message(FATAL_ERROR "there is no picture ${picture}: ${errors}")
  endif()
  file(SIZE ${FOLDER}/${picture}.png size)
  if(size LESS 5000)
    message(FATAL_ERROR "the picture ${picture} of ${size} bytes shows nothing")
  endif()
endforeach()

# What is refused is told at once in the program's own words, by its exit code too, and leaves no picture.
function(expect_refusal expected_code words)
  execute_process(COMMAND ${XVFB_RUN} -a -s "-screen 0 1440x900x24" ${PROGRAM} ${ARGN}
    TIMEOUT 60 RESULT_VARIABLE code ERROR_VARIABLE errors)
  if(NOT code STREQUAL expected_code OR NOT errors MATCHES "vornlab-desktop: ${words}")
    message(FATAL_ERROR "${ARGN} ended with ${code}: ${errors}")
  endif()
endfunction()
expect_refusal(1 "the panel does not open: Your version of the Vorn" --panel --picture ${FOLDER}/none.png --client-version 1.0)
if(EXISTS ${FOLDER}/none.png)
  message(FATAL_ERROR "a refused run has left a picture")
endif()
