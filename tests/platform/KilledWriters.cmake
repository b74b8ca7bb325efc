# Ends a process that writes a settings file in the midst of its writes, again and again, then lets four write at once:
#   cmake -D WRITER=<profile_writer and what runs it> -D FOLDER=<to empty and use> -D KILLS=<n> -P KilledWriters.cmake
# Nothing may be torn or lost, and nothing of the killed may be left.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE "${FOLDER}")
file(MAKE_DIRECTORY "${FOLDER}")
set(file "${FOLDER}/Settings.ini")

foreach(kill RANGE 1 ${KILLS})
    math(EXPR microseconds "${kill} * 137 % 4000")
    execute_process(COMMAND ${WRITER} "${file}" Killed 2 ${microseconds} RESULT_VARIABLE result ERROR_VARIABLE why)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "after ${kill} kills: ${result} ${why}")
    endif()
endforeach()

# The commands of one execute_process run at the same time.
execute_process(
    COMMAND ${WRITER} "${file}" One 40
    COMMAND ${WRITER} "${file}" Two 40
    COMMAND ${WRITER} "${file}" Three 40
    COMMAND ${WRITER} "${file}" Four 40
    RESULTS_VARIABLE results)
if(NOT results STREQUAL "0;0;0;0")
    message(FATAL_ERROR "four writers: ${results}")
endif()

file(GLOB left RELATIVE "${FOLDER}" "${FOLDER}/*")
if(NOT left STREQUAL "Settings.ini")
    message(FATAL_ERROR "left behind: ${left}")
endif()
