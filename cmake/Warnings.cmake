# One interface target that every own target links: warnings as errors, sanitizers when asked for.
add_library(velmo_options INTERFACE)
target_compile_options(velmo_options INTERFACE
    -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees an overlap in every optimised "literal" + std::string (its bug 105329).
    target_compile_options(velmo_options INTERFACE -Wno-restrict)
endif()
if(VELMO_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(velmo_options INTERFACE ${sanitizers})
    target_link_options(velmo_options INTERFACE ${sanitizers})
endif()
if(VELMO_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "VELMO_FUZZ needs Clang, whose library the fuzzers are built on")
    endif()
    target_compile_options(velmo_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(WIN32)
    target_compile_definitions(velmo_options INTERFACE
        UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00)
endif()
target_include_directories(velmo_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
