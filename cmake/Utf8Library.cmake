# utfcpp as one target: headers only and of no system, so that a cross build takes the host's. They lie in a folder of
# their own, in which it sees no other header of the host.
find_path(UTF8CPP_INCLUDE_DIR utf8.h PATHS /usr/include/utf8cpp NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
add_library(velmo_utf8cpp INTERFACE)
target_include_directories(velmo_utf8cpp SYSTEM INTERFACE ${UTF8CPP_INCLUDE_DIR})
