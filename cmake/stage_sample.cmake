# Puts the sample army into the folder Data of a fresh build, with a settings file that names it. A build that has a settings file
# belongs to a player already, and no file that is there is ever overwritten.
#
# cmake -D SAMPLE=<folder> -D HOME=<folder of the executable> -D NAME=<name of the executable> -P stage_sample.cmake

set(settings "${HOME}/${NAME}.ini")
if(EXISTS "${settings}")
  return()
endif()

file(MAKE_DIRECTORY "${HOME}/Data")
file(GLOB samples RELATIVE "${SAMPLE}" "${SAMPLE}/*")
foreach(sample IN LISTS samples)
  if(NOT EXISTS "${HOME}/Data/${sample}")
    file(COPY "${SAMPLE}/${sample}" DESTINATION "${HOME}/Data")
  endif()
endforeach()

set(army "${HOME}/Data/Harrow March")
file(WRITE "${settings}" "[Files]\r\nEquipmentFile=${army}.v2q\r\nArmyListFile=${army}.v2l\r\nArmyRosterFile=${army}.v2r\r\n")
