# Checks who includes whom:  cmake -D ROOT=<source tree> -P cmake/CheckLayers.cmake
#
# Each offence is one line, "file:line: reason"; any offence, and a tree without sources, is a failure. The check reads
# preprocessor lines only and knows nothing of conditions: a line that is there counts.
cmake_minimum_required(VERSION 3.25)

# ---- The rules ----

# Every room with the rooms that it may include besides itself. Siblings don't know each other.
set(rooms text platform settings controls version access trust download catalogue news install updates equipment
    manager ui app companion)
set(below_text)
set(below_platform  text)
set(below_settings  text platform)
set(below_controls  ${below_settings})
set(below_version   ${below_settings} settings controls)
set(below_access    ${below_version})
set(below_trust     ${below_version})
set(below_download  ${below_version} version access trust)
set(below_catalogue ${below_download} download)
set(below_news      ${below_catalogue})
set(below_install   ${below_catalogue} catalogue news)
set(below_updates   ${below_install} install)
set(below_equipment ${below_updates})
set(below_manager   ${below_updates} updates equipment)
set(below_ui        text platform settings controls)
set(below_app       ${below_manager} manager ui)
set(below_companion ${below_manager} manager)

# Folders that may use the toolkit.
set(toolkit_folders src/ui src/app tests/ui)
# Folders that may ask which port of the toolkit this is: what differs is a body in src/ui/windows or src/ui/posix.
set(toolkit_macro_folders tests/ui)
# Folders that may use the operating system; below src/platform the headers themselves stay free of it.
set(system_folders src/platform src/ui/windows src/ui/posix tests/support)
set(system_free_headers "^src/platform/[^/]+\\.h$")

set(toolkit_include "^wx/")
set(system_include
    # posix
    "^(sys|linux|curl|net|netinet|arpa)/"
    "^(aio|dirent|dlfcn|fcntl|fnmatch|ftw|glob|grp|iconv|langinfo|netdb|poll|pthread|pwd|sched|semaphore)\\.h$"
    "^(signal|spawn|strings|syslog|termios|unistd|utime|wordexp)\\.h$"
    # Windows; "win" begins windows.h, winsock2.h, wininet.h and a dozen more
    "^(win|ws2|shell|shl|ole|oa|obj)[a-z0-9_]*\\.h$"
    "^(aclapi|comdef|commctrl|commdlg|conio|direct|exdisp|initguid|io|iphlpapi|knownfolders|mshtml|process)\\.h$"
    "^(psapi|sddl|tchar|tlhelp32|unknwn|urlmon|userenv|uxtheme|versionhelpers|wtsapi32|dwmapi|propsys)\\.h$")
set(system_macro "(_WIN32|_WIN64|WIN32|WIN64|_MSC_VER|__MINGW32__|__MINGW64__|__linux__|__unix__|__unix|__APPLE__)")
set(toolkit_macro "(__WX[A-Z0-9_]+__)")

# ---- The check ----

function(offence reason)
    message("${file}:${line_number}: ${reason}")
    set_property(GLOBAL APPEND PROPERTY offences "${file}:${line_number}")
endfunction()

# Whether one of the folders holds the file.
function(lies_in result file folders)
    set(${result} OFF PARENT_SCOPE)
    foreach(folder IN LISTS folders)
        string(FIND "${file}" "${folder}/" position)
        if(position EQUAL 0)
            set(${result} ON PARENT_SCOPE)
        endif()
    endforeach()
endfunction()

# What a file may do, from its place and name. A macro: it sets its caller's variables.
macro(look_up_rights)
    set(room "")
    if(file MATCHES "^src/([^/]+)/")
        set(room ${CMAKE_MATCH_1})
    endif()
    lies_in(may_use_toolkit "${file}" "${toolkit_folders}")
    lies_in(may_use_toolkit_macro "${file}" "${toolkit_macro_folders}")
    lies_in(may_use_system "${file}" "${system_folders}")
    set(may_include_system ${may_use_system})
    if(file MATCHES "${system_free_headers}")
        set(may_include_system OFF)
    endif()
    set(allowed_rooms ${room} ${below_${room}})
endmacro()

function(check_room_include header target)
    if(header MATCHES "^platform/(windows|posix)/" AND NOT may_use_system)
        offence("${header} is a body of src/platform; include the interface")
    elseif(room AND NOT target IN_LIST allowed_rooms)
        offence("${room} may not include ${target}")
    endif()
endfunction()

function(check_include header quoted)
    string(TOLOWER "${header}" lower)
    foreach(pattern IN LISTS system_include)
        if(lower MATCHES "${pattern}")
            if(NOT may_include_system)
                offence("${header} is the operating system's, which only bodies of src/platform and src/ui know")
            endif()
            return()
        endif()
    endforeach()
    string(REGEX MATCH "^[^/]+/" target "${header}")
    string(REPLACE "/" "" target "${target}")
    if(header MATCHES "${toolkit_include}")
        if(NOT may_use_toolkit)
            offence("${header} is the toolkit's, which only src/ui and src/app know")
        endif()
    elseif(target IN_LIST rooms)
        check_room_include("${header}" ${target})
    elseif(room AND quoted)
        offence("${header} names no room; own includes start from src/")
    endif()
endfunction()

function(check_directive line)
    if(line MATCHES "^[ \t]*#[ \t]*include[ \t]*([<\"])([^>\"]+)[>\"]")
        if(CMAKE_MATCH_1 STREQUAL "<")
            check_include("${CMAKE_MATCH_2}" OFF)
        else()
            check_include("${CMAKE_MATCH_2}" ON)
        endif()
    elseif(line MATCHES "^[ \t]*#[ \t]*(el)?if")
        if(line MATCHES "[^A-Za-z0-9_]${system_macro}([^A-Za-z0-9_]|$)" AND NOT may_use_system)
            offence("${CMAKE_MATCH_1} asks which system this is, which only bodies of src/platform and src/ui know")
        endif()
        if(line MATCHES "[^A-Za-z0-9_]${toolkit_macro}([^A-Za-z0-9_]|$)" AND NOT may_use_toolkit_macro)
            offence("${CMAKE_MATCH_1} asks which toolkit this is, which only the choice of bodies in src/ui knows")
        endif()
    endif()
endfunction()

if(NOT IS_DIRECTORY "${ROOT}/src")
    message(FATAL_ERROR "CheckLayers: ROOT has no folder src: ${ROOT}")
endif()
set(patterns)
foreach(folder IN ITEMS src sample tests)
    list(APPEND patterns "${ROOT}/${folder}/*.h" "${ROOT}/${folder}/*.cpp")
endforeach()
file(GLOB_RECURSE files RELATIVE "${ROOT}" LIST_DIRECTORIES false ${patterns})
list(LENGTH files count)
if(count EQUAL 0)
    message(FATAL_ERROR "CheckLayers: no sources in ${ROOT}")
endif()

foreach(file IN LISTS files)
    look_up_rights()
    set(line_number 1)
    if(file MATCHES "^src/" AND NOT room IN_LIST rooms)
        offence("src has no room of this name; give it its place in cmake/CheckLayers.cmake")
        continue()
    endif()
    # Characters that mean something to lists and arguments go; none of them decides a rule.
    file(READ "${ROOT}/${file}" text)
    string(REGEX REPLACE "[][;$\\]" "_" text "${text}")
    string(REPLACE "\r" "" text "${text}")
    string(REPLACE "\n" ";" lines "${text}")
    set(line_number 0)
    foreach(line IN LISTS lines)
        math(EXPR line_number "${line_number} + 1")
        if(line MATCHES "^[ \t]*#")
            check_directive("${line}")
        endif()
    endforeach()
endforeach()

get_property(offences GLOBAL PROPERTY offences)
if(offences)
    list(LENGTH offences offence_count)
    message(FATAL_ERROR "CheckLayers: ${offence_count} offences in ${count} sources")
endif()
message(STATUS "CheckLayers: ${count} sources, no offence")
