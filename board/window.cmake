# The board window fen1 on the form kit.
add_library(fendle_board_window STATIC ${CMAKE_CURRENT_SOURCE_DIR}/fen1_form.cpp ${CMAKE_CURRENT_SOURCE_DIR}/fen1_form.h)
target_include_directories(fendle_board_window PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(fendle_board_window PUBLIC fendle_screens fendle_text fendle_saved)
