# Cross build for 64-bit Windows with Debian's mingw-w64; what it builds runs here under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triplet x86_64-w64-mingw32)

# The static libraries that build-wx-windows.sh and build-sodium-windows.sh make once, outside the tree.
foreach(library WX SODIUM)
    if(NOT ${library}_ROOT)
        string(TOLOWER ${library} name)
        execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/build-${name}-windows.sh --where
                        OUTPUT_VARIABLE ${library}_ROOT OUTPUT_STRIP_TRAILING_WHITESPACE)
    endif()
    list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ${library}_ROOT)
endforeach()

set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${triplet} ${WX_ROOT} ${SODIUM_ROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/wine)
