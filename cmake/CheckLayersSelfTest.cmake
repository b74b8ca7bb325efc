# Shows CheckLayers.cmake every kind of offence:  cmake -D WORK=<folder to empty and use> -P CheckLayersSelfTest.cmake
cmake_minimum_required(VERSION 3.25)

# "path|one line of source|the offence". Each line becomes the third line of a file of its own.
set(offending
    "src/text/Above.cpp|#include \"platform/X.h\"|text may not include platform"
    "src/platform/Above.cpp|#include \"settings/X.h\"|platform may not include settings"
    "src/access/Sibling.cpp|#include \"version/X.h\"|access may not include version"
    "src/install/Above.cpp|#include \"equipment/X.h\"|install may not include equipment"
    "src/settings/Sibling.cpp|#include \"controls/X.h\"|settings may not include controls"
    "src/controls/Sibling.h|#include <settings/X.h>|controls may not include settings"
    "src/news/Sibling.cpp|#include \"catalogue/X.h\"|news may not include catalogue"
    "src/equipment/Sibling.cpp|#include \"updates/X.h\"|equipment may not include updates"
    "src/updates/Above.cpp|#include \"manager/X.h\"|updates may not include manager"
    "src/updates/Logic.cpp|#include \"ui/X.h\"|updates may not include ui"
    "src/manager/Above.cpp|  #  include \"app/X.h\"|manager may not include app"
    "src/ui/Feature.cpp|#include \"updates/X.h\"|ui may not include updates"
    "src/app/Companion.cpp|#include \"companion/X.h\"|app may not include companion"
    "src/companion/Toolkit.cpp|#include \"ui/X.h\"|companion may not include ui"
    "src/updates/frmOptions.cpp|#include <wx/dialog.h>|wx/dialog.h is the toolkit's"
    "src/equipment/Toolkit.cpp|#include <wx/string.h>|wx/string.h is the toolkit's"
    "src/updates/ToolkitMacro.cpp|#if defined(__WXMSW__)|__WXMSW__ asks which toolkit this is"
    "src/app/ToolkitMacro.cpp|#ifdef __WXMSW__|__WXMSW__ asks which toolkit this is"
    "src/ui/ToolkitMacro.cpp|#ifndef __WXGTK__|__WXGTK__ asks which toolkit this is"
    "tests/updates/Toolkit.cpp|#include <wx/app.h>|wx/app.h is the toolkit's"
    "src/ui/System.cpp|#include <windows.h>|windows.h is the operating system's"
    "src/download/Curl.cpp|#include <curl/curl.h>|curl/curl.h is the operating system's"
    "src/app/Case.cpp|#include <ShlObj.h>|ShlObj.h is the operating system's"
    "src/companion/Posix.cpp|#include <sys/stat.h>|sys/stat.h is the operating system's"
    "src/platform/Public.h|#include <unistd.h>|unistd.h is the operating system's"
    "sample/System.cpp|#include <fcntl.h>|fcntl.h is the operating system's"
    "tests/updates/System.cpp|#include <spawn.h>|spawn.h is the operating system's"
    "src/catalogue/Macro.cpp|#ifdef _WIN32|_WIN32 asks which system this is"
    "src/catalogue/LaterMacro.cpp|#elif X && !defined( __linux__ )|__linux__ asks which system this is"
    "tests/catalogue/Macro.cpp|#ifndef _WIN32|_WIN32 asks which system this is"
    "src/app/Body.cpp|#include \"platform/posix/X.h\"|platform/posix/X.h is a body"
    "tests/platform/Body.cpp|#include \"platform/windows/X.h\"|platform/windows/X.h is a body"
    "src/ui/Relative.cpp|#include \"Neighbour.h\"|Neighbour.h names no room"
    "src/settings/Tests.cpp|#include \"tests/support/X.h\"|tests/support/X.h names no room"
    "src/helpers/Anything.cpp|int x = 0|src has no room of this name"
)
set(allowed
    "src/platform/posix/Body.cpp|#include <unistd.h>"
    "src/platform/windows/Body.h|#include <windows.h>"
    "src/platform/Common.cpp|#ifdef _WIN32"
    "src/platform/posix/Other.cpp|#include \"platform/posix/X.h\""
    "src/settings/Below.cpp|#include \"platform/X.h\""
    "src/updates/Below.cpp|#include \"download/X.h\""
    "src/ui/Toolkit.cpp|#include <wx/app.h>"
    "tests/ui/ToolkitMacro.cpp|#ifdef __WXMSW__"
    "src/ui/windows/Body.cpp|#include <windows.h>"
    "src/ui/posix/Body.cpp|#include <unistd.h>"
    "src/app/frmMain.cpp|#include \"equipment/X.h\""
    "src/companion/Below.cpp|#include \"manager/X.h\""
    "src/companion/Library.cpp|#include <CLI/CLI.hpp>"
    "src/settings/NotADirective.cpp|// #include <windows.h>"
    "src/settings/OtherName.cpp|#ifdef VELMO_WIN32_NAMES"
    "tests/support/System.cpp|#include <spawn.h>"
    "tests/ui/Toolkit.cpp|#include <wx/app.h>"
    "tests/updates/AnyRoom.cpp|#include \"manager/X.h\""
    "tests/updates/Support.cpp|#include \"tests/support/X.h\""
)

# Lays the samples out as a tree and checks it: sets result and output.
function(check_samples samples)
    file(REMOVE_RECURSE "${WORK}")
    file(MAKE_DIRECTORY "${WORK}/src")
    foreach(sample IN LISTS samples)
        string(REGEX MATCH "^([^|]*)\\|([^|]*)" ignored "${sample}")
        # What a list or an argument would trip over must not hide the line below it.
        file(WRITE "${WORK}/${CMAKE_MATCH_1}" "// [ ; \\ \${x} \"\n\n${CMAKE_MATCH_2}\n")
    endforeach()
    execute_process(COMMAND ${CMAKE_COMMAND} -D ROOT=${WORK} -P ${CMAKE_CURRENT_LIST_DIR}/CheckLayers.cmake
                    RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
    set(result ${code} PARENT_SCOPE)
    set(output "${out}${err}" PARENT_SCOPE)
endfunction()

set(faults 0)
macro(fault text)
    message("${text}")
    math(EXPR faults "${faults} + 1")
endmacro()

check_samples("${offending}")
if(result EQUAL 0)
    fault("a tree of offences passed")
endif()
foreach(sample IN LISTS offending)
    string(REGEX MATCH "^([^|]*)\\|([^|]*)\\|(.*)$" ignored "${sample}")
    set(line 3)
    if(CMAKE_MATCH_3 MATCHES "no room of this name")
        set(line 1) # It is the place that offends.
    endif()
    string(FIND "${output}" "${CMAKE_MATCH_1}:${line}: ${CMAKE_MATCH_3}" position)
    if(position EQUAL -1)
        fault("not caught: ${sample}")
    endif()
endforeach()
list(LENGTH offending count)
if(NOT output MATCHES "CheckLayers: ${count} offences in ${count} sources")
    fault("expected ${count} offences, one a file:\n${output}")
endif()

check_samples("${allowed}")
if(NOT result EQUAL 0)
    fault("a tree without offences failed:\n${output}")
endif()

check_samples("")
if(result EQUAL 0)
    fault("an empty tree passed")
endif()

file(REMOVE_RECURSE "${WORK}")
if(faults GREATER 0)
    message(FATAL_ERROR "CheckLayers itself has ${faults} faults")
endif()
