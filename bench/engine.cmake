add_executable(engine_bench ${CMAKE_CURRENT_SOURCE_DIR}/engine_bench.cpp)
target_link_libraries(engine_bench PRIVATE fendle_engine benchmark::benchmark)
target_include_directories(engine_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests/engine)
