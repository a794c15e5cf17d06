add_executable(lantos lantos.cpp)
target_link_libraries(lantos PRIVATE lantos_start lantos_qt)
