add_executable(tools_bench ${CMAKE_CURRENT_SOURCE_DIR}/tools_bench.cpp)
target_link_libraries(tools_bench PRIVATE fendle_bold_face benchmark::benchmark)
