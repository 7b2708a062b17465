# A meeting with attendees and a series become online meetings, and the calendar file holds what belongs to that:
# the user's own body, the invitation behind it between its bookmarks, and the record.
execute_process(
  COMMAND ${PROGRAM} meet ${CALENDAR} --out ${OUT} --uid supplier-talk@calendar.example
    --uid weekly-product-review@calendar.example
  OUTPUT_VARIABLE told ERROR_VARIABLE complaints RESULT_VARIABLE code)
if(NOT code EQUAL 0 OR NOT told MATCHES "2 added, 0 updated, 0 unchanged, 0 skipped, 0 failed")
  message(FATAL_ERROR "exit ${code}\n${told}\n${complaints}")
endif()

file(READ ${OUT} calendar)
string(REGEX REPLACE "\r?\n[ \t]" "" calendar "${calendar}")
foreach(wanted
    "LOCATION:Project room[^\n]*https://vorn.example/j/[0-9]+"
    "DESCRIPTION:What went out last week[^\n]*inviting you to a scheduled Vorn meeting"
    "Who does what<a name=\"MacVnBookmarkBegin\"></a>[^\n]*<a name=\"MacVnBookmarkEnd\"></a>"
    "X-VORNLAB-OLMUCINBAND:[^\n]*meetingKey")
  if(NOT calendar MATCHES "${wanted}")
    message(FATAL_ERROR "the calendar lacks: ${wanted}")
  endif()
endforeach()
