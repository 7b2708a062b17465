# Both hosts tell the same of the plug-in, in the same words: a hook that stands in one and not in the other, or an
# appointment that looks different, is a fault of one of the two.
function(compare)
  foreach(runtime embedded objc)
    execute_process(COMMAND ${PROGRAM} ${ARGN} --runtime ${runtime}
      OUTPUT_VARIABLE told_${runtime} ERROR_VARIABLE complaints RESULT_VARIABLE code)
    if(NOT code EQUAL 0 OR told_${runtime} STREQUAL "")
      message(FATAL_ERROR "${ARGN} --runtime ${runtime}: exit ${code}\n${told_${runtime}}\n${complaints}")
    endif()
  endforeach()
  if(NOT told_embedded STREQUAL told_objc)
    message(FATAL_ERROR "${ARGN}\nembedded:\n${told_embedded}\nobjc:\n${told_objc}")
  endif()
endfunction()

compare(hooks)
compare(hooks --json)
compare(inspect ${CALENDAR})
compare(inspect ${CALENDAR} --uid supplier-talk@calendar.example --json)

# What neither knows is bad usage.
foreach(words "hooks;--runtime;other" "hooks;--runtime" "demo;--runtime=objc")
  execute_process(COMMAND ${PROGRAM} ${words} OUTPUT_VARIABLE told ERROR_VARIABLE told RESULT_VARIABLE code)
  if(NOT code EQUAL 2)
    message(FATAL_ERROR "${words}: exit ${code}\n${told}")
  endif()
endforeach()
