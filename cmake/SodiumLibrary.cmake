# libsodium as one target: Debian's natively, for Windows the one that build-sodium-windows.sh makes, where it is static
# and the header has to be told so.
find_path(SODIUM_INCLUDE_DIR sodium.h REQUIRED)
find_library(SODIUM_LIBRARY sodium REQUIRED)
add_library(velmo_sodium INTERFACE)
target_include_directories(velmo_sodium SYSTEM INTERFACE ${SODIUM_INCLUDE_DIR})
target_link_libraries(velmo_sodium INTERFACE ${SODIUM_LIBRARY})
if(WIN32)
    target_compile_definitions(velmo_sodium INTERFACE SODIUM_STATIC)
endif()
