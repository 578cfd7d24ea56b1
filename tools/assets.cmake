# The generator of every picture and sound, and the build step that runs it
# into the game folder.
add_library(fendle_artwork STATIC artwork.cpp sounds.cpp)
target_include_directories(fendle_artwork PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(fendle_artwork PUBLIC Qt6::Gui fendle_engine)

add_executable(make_assets make_assets.cpp)
target_link_libraries(make_assets PRIVATE fendle_artwork Qt6::Svg)

set(FENDLE_ASSETS_STAMP ${CMAKE_CURRENT_BINARY_DIR}/assets.stamp)
add_custom_command(
  OUTPUT ${FENDLE_ASSETS_STAMP}
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen $<TARGET_FILE:make_assets> ${FENDLE_GAME_DIR}
  COMMAND ${CMAKE_COMMAND} -E touch ${FENDLE_ASSETS_STAMP}
  DEPENDS make_assets
  COMMENT "Drawing the pictures and synthesising the sounds into ${FENDLE_GAME_DIR}"
  VERBATIM)

# The bold Tahoma, fitted from the clone's bold file and DejaVu Sans Bold
# into fonts/ of the game folder; nothing there when either is missing.
set(bold_face_sources /usr/share/wine/fonts/tahomabd.ttf /usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf)
set(bold_face_depends make_bold_face)
foreach(source ${bold_face_sources})
  if(EXISTS ${source})
    list(APPEND bold_face_depends ${source})
  endif()
endforeach()
set(FENDLE_BOLD_FACE_STAMP ${CMAKE_CURRENT_BINARY_DIR}/bold_face.stamp)
add_custom_command(
  OUTPUT ${FENDLE_BOLD_FACE_STAMP}
  COMMAND $<TARGET_FILE:make_bold_face> ${bold_face_sources} ${FENDLE_GAME_DIR}/fonts/tahoma-bold.ttf
  COMMAND ${CMAKE_COMMAND} -E touch ${FENDLE_BOLD_FACE_STAMP}
  DEPENDS ${bold_face_depends}
  COMMENT "Fitting the bold Tahoma into ${FENDLE_GAME_DIR}/fonts"
  VERBATIM)
add_custom_target(fendle_assets ALL DEPENDS ${FENDLE_ASSETS_STAMP} ${FENDLE_BOLD_FACE_STAMP})

# The program's icon in the hicolor theme, for installing.
set(FENDLE_ICONS_STAMP ${CMAKE_CURRENT_BINARY_DIR}/icons.stamp)
add_custom_command(
  OUTPUT ${FENDLE_ICONS_STAMP}
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen $<TARGET_FILE:make_assets> --icons ${FENDLE_ICONS_DIR} ${FENDLE_APP_ID}
  COMMAND ${CMAKE_COMMAND} -E touch ${FENDLE_ICONS_STAMP}
  DEPENDS make_assets
  COMMENT "Drawing the icon into ${FENDLE_ICONS_DIR}"
  VERBATIM)
add_custom_target(fendle_icons ALL DEPENDS ${FENDLE_ICONS_STAMP})
