# nlohmann-json as one target: headers only and of no system, so that a cross build takes the host's. They get a folder of
# their own, in which it sees no other header of the host.
find_path(JSON_INCLUDE_DIR nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(json_folder ${CMAKE_BINARY_DIR}/json)
file(MAKE_DIRECTORY ${json_folder})
file(CREATE_LINK ${JSON_INCLUDE_DIR}/nlohmann ${json_folder}/nlohmann SYMBOLIC)
add_library(velmo_json INTERFACE)
target_include_directories(velmo_json SYSTEM INTERFACE ${json_folder})
