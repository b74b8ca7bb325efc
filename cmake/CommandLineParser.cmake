# CLI11 as one target: headers only and of no system, so that a cross build takes the host's. They get a folder of their
# own, in which it sees no other header of the host.
find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(cli11_folder ${CMAKE_BINARY_DIR}/cli11)
file(MAKE_DIRECTORY ${cli11_folder})
file(CREATE_LINK ${CLI11_INCLUDE_DIR}/CLI ${cli11_folder}/CLI SYMBOLIC)
add_library(velmo_cli11 INTERFACE)
target_include_directories(velmo_cli11 SYSTEM INTERFACE ${cli11_folder})
