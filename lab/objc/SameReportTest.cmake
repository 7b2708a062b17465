# Both hosts tell the same of the plug-in, in the same words: a hook that stands in one and not in the other, or an
# appointment that looks different, is a fault of one of the two.
function(compare expected)
  foreach(runtime embedded objc)
    execute_process(COMMAND ${PROGRAM} ${ARGN} --runtime ${runtime}
      OUTPUT_VARIABLE told ERROR_VARIABLE complaints RESULT_VARIABLE code)
    if(NOT code EQUAL ${expected} OR told STREQUAL "")
      message(FATAL_ERROR "${ARGN} --runtime ${runtime}: exit ${code}\n${told}\n${complaints}")
    endif()
    # The service draws its numbers, and one host is quicker.
    string(REGEX REPLACE "https://vorn.example/j/[^\"]*|\"meetingKey\":\"[0-9]+\"|\"seconds\":[0-9.]+" "" told_${runtime}
      "${told}")
  endforeach()
  if(NOT told_embedded STREQUAL told_objc)
    message(FATAL_ERROR "${ARGN}\nembedded:\n${told_embedded}\nobjc:\n${told_objc}")
  endif()
endfunction()

compare(0 hooks)
compare(0 hooks --json)
compare(0 inspect ${CALENDAR})
compare(0 inspect ${CALENDAR} --uid supplier-talk@calendar.example --json)
get_filename_component(calendars ${CALENDAR} DIRECTORY)
compare(0 inspect ${calendars}/by-hand.ics --json)
compare(1 meet ${calendars}/by-hand.ics --out ${OUT} --all --json --client-db :memory:)

# A variable that is no text is none of this host's business.
string(ASCII 255 no_text)
set(ENV{NO_TEXT} "${no_text}")
compare(0 hooks --json)
unset(ENV{NO_TEXT})

# What neither knows is bad usage.
foreach(words "hooks;--runtime;other" "hooks;--runtime" "demo;--runtime=objc")
  execute_process(COMMAND ${PROGRAM} ${words} OUTPUT_VARIABLE told ERROR_VARIABLE told RESULT_VARIABLE code)
  if(NOT code EQUAL 2)
    message(FATAL_ERROR "${words}: exit ${code}\n${told}")
  endif()
endforeach()
