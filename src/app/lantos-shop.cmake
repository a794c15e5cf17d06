add_executable(lantos-shop lantos-shop.cpp)
target_link_libraries(lantos-shop PRIVATE lantos_shopmaker CLI11::CLI11)
